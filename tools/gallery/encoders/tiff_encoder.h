#pragma once
// TIFF of 8-bit RGB, LZW with the horizontal predictor.

#include <cstdint>
#include <vector>

#include "pictures/pixels.h"

namespace lumidex {

std::vector<std::uint8_t> EncodeTiff(const Pixels& pixels);

}  // namespace lumidex
