#pragma once
// The current picture on the main window: zoom, fit and place.

#include "forms/app.h"

namespace lumidex {

// Brings a file up in the picture area at `zoom`. A file that is not there leaves the old picture.
// `alreadyLoaded` spares the loading. Raises Overflow when the zoomed size leaves 16 bits; Image1 is hidden
// then.
void DisplayCurrentImage(App& app, std::string path, bool alreadyLoaded, float zoom);

// While the program idles, has the pictures decoded that stand next to the selected entry of the Display
// list: first the one that comes next, then the one before, round the ends as the steps go.
void ReadNeighboursAhead(App& app);

}  // namespace lumidex
