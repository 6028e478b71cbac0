#pragma once
// A picture on which reducers differ most, for the tests and the benchmark.

#include "pictures/pixels.h"

namespace lumidex {

// Black lines one and two pixels wide on white, close together, and steps of a stair: what shows a reducer
// that leaves out pixels.
inline Pixels ThinLines(Size size) {
  Pixels pixels = Pixels::Make(size, PixelFormat::Rgb, 0xFFFFFFFF);
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      const bool dark = x < size.width / 2 ? x % 3 == 0 || y % 5 < 2 : (x + y) % 4 < 1;
      if (dark) pixels.Row(y)[static_cast<std::size_t>(x)] = 0xFF000000;
    }
  }
  return pixels;
}

}  // namespace lumidex
