#pragma once
// A picture object to a bitmap file.

#include "forms/app.h"

namespace lumidex {

// Writes the picture as a bitmap, whatever it came from. Raises InvalidPropertyValue for the empty picture
// and what writing raises.
void SavePicture(App& app, Picture picture, std::string path);

}  // namespace lumidex
