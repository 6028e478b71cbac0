#pragma once
// Converts every entry of the Display list to one file type.

#include "forms/app.h"

namespace lumidex {

// Asks for the type, then converts one file after the other. Errors are not handled: a file that can't be
// read, a name without a point, a target that can't be written end the batch. While a batch runs a second one
// does nothing. CurrentIndex is the number of entries afterwards, or 2 when no type was chosen.
void ConvertImages(App& app);

}  // namespace lumidex
