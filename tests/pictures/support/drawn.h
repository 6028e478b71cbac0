#pragma once
// Draws a metafile's bytes and asks what stands where.

#include <cstdint>
#include <vector>

#include "pictures/support/byte_writer.h"
#include "pictures/support/colours.h"

namespace lumidex {

inline Pixels Drawn(const std::vector<std::uint8_t>& bytes, Size size = {}) {
  return OpenBytes(bytes)->Decode({size});
}

// 0xRRGGBB.
inline std::uint32_t ColourAt(const Pixels& pixels, int x, int y) {
  return pixels.Row(y)[static_cast<std::size_t>(x)] & 0xFFFFFF;
}

// How many pixels in the box are not white.
inline int MarksIn(const Pixels& pixels, int left, int top, int right, int bottom) {
  int marks = 0;
  for (int y = top; y < bottom; ++y)
    for (int x = left; x < right; ++x) marks += ColourAt(pixels, x, y) != 0xFFFFFF;
  return marks;
}

}  // namespace lumidex
