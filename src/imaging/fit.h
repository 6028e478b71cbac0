#pragma once
// How a picture that is too large is brought into the area that shows it.

#include <cstdint>

#include "ports/picture_area.h"

namespace lumidex {

// Brings the zoomed size into the picture area. Only the side that is the more oversize is brought to its
// limit, the other follows; equal overshoots, and a side that just meets its limit, keep the size as it is.
void FitToArea(std::int16_t& width, std::int16_t& height, std::int16_t areaWidth, std::int16_t areaHeight);

// A side at a zoom. Raises Overflow when it leaves 16 bits.
std::int16_t Zoomed(std::int16_t length, float zoom);

// The size at which the area shows a picture of size `full`; `full` where that can't be told.
Size ShownIn(const PictureArea& area, Size full, float zoom);

}  // namespace lumidex
