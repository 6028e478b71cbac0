#pragma once
// Writes bitmap files.

#include <string>

#include "pictures/pixels.h"

namespace lumidex {

// A Windows bitmap of 24 bits a pixel, uncompressed, rows bottom-up; transparency is blended over white.
// Raises InvalidPicture when the file would not fit the format's 32-bit length.
std::string BmpFile(const Pixels& pixels);

}  // namespace lumidex
