#pragma once
// How a picture that is too large is brought into the area that shows it.

#include <cstdint>

namespace lumidex {

// Brings the zoomed size into the picture area. Only the side that is the more oversize is brought to its
// limit, the other follows; equal overshoots, and a side that just meets its limit, keep the size as it is.
void FitToArea(std::int16_t& width, std::int16_t& height, std::int16_t areaWidth, std::int16_t areaHeight);

}  // namespace lumidex
