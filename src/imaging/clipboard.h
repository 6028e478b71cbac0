#pragma once
// The current picture, or the path of its entry, for other programs to paste.

#include "forms/app.h"

namespace lumidex {

// Puts the path of the selected Display entry on the clipboard. A failure is told in a message box.
void CopyPictureLink(App& app);
// Puts the picture of the main window there, as it is shown, in its own size. A failure is told in a message
// box.
void CopyPicture(App& app);

}  // namespace lumidex
