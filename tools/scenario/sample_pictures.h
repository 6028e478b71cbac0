#pragma once
// Small real picture files for scenarios, made by the program's own picture writers.

#include <string>

#include "pictures/size.h"

namespace lumidex {
class Pixels;
}

namespace lumidex::scenario {

// Red grows from 0 to 255 from left to right, green from top to bottom, blue is 64.
Pixels SamplePixels(Size size);

// A picture file of that size; `extension` (".png", in any case) chooses the format, `bitsPerPixel` is 1, 4,
// 8, 24 or 32 where the format has it, 0 for its usual depth. Throws Failure for others.
std::string SampleFile(const std::string& extension, Size size, int bitsPerPixel);

}  // namespace lumidex::scenario
