#pragma once
// TIFF of 8-bit RGB, LZW with the horizontal predictor.

#include <cstdint>
#include <vector>

namespace lumidex {

class Pixels;

std::vector<std::uint8_t> EncodeTiff(const Pixels& pixels);

}  // namespace lumidex
