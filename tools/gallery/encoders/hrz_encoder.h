#pragma once
// Slow-scan television pictures.

#include <cstdint>
#include <vector>

namespace lumidex {

class Pixels;

// The picture must be 256 by 240; the two lowest bits of each component are lost.
std::vector<std::uint8_t> EncodeHrz(const Pixels& pixels);

}  // namespace lumidex
