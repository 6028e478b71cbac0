#pragma once
// Slow-scan television pictures.

#include <cstdint>
#include <vector>

#include "pictures/pixels.h"

namespace lumidex {

// The picture must be 256 by 240; the two lowest bits of each component are lost.
std::vector<std::uint8_t> EncodeHrz(const Pixels& pixels);

}  // namespace lumidex
