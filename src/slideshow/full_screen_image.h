#pragma once
// The current picture in the window that fills the screen.

#include "forms/app.h"

namespace lumidex {

// Shows what the main window has just loaded, centred, brought down to the window where the rule says so.
void ShowFullScreenImage(App& app);

}  // namespace lumidex
