#pragma once
// The colour profile of what is written, and a look at that of what was read.

#include <cstdint>
#include <vector>

#include "pictures/picture_data.h"

namespace lumidex {

// True for a usable profile of red, green and blue, as pixels have them.
bool IsRgbProfile(Bytes icc);
// The profile of sRGB, the same bytes each time.
std::vector<std::uint8_t> MakeSrgbProfile();

}  // namespace lumidex
