#pragma once
// Saving the working image, and a thumbnail of it, under a name that the user chooses.

#include "forms/app.h"

namespace lumidex {

// As a bitmap or a JPEG file, as the filter of the dialog says. A JPEG name without ".JPG" in capitals is
// built anew from the file's name alone, so that the file comes into the current directory. Raises what
// writing raises.
void SaveImageAs(App& app);

// As a bitmap, whatever the name says, in the size and style of the preferences; yields. Raises what writing
// raises.
void SaveThumbnailAs(App& app);

}  // namespace lumidex
