#pragma once
// Metafiles of a scene in plain colours: its shapes as polygons and polylines, a tenth of a pixel fine.

#include <cstdint>
#include <vector>

#include "drawing/canvas.h"

namespace lumidex {

// Shapes in tenths of a pixel of a picture of `size`.
struct NotedDrawing {
  static constexpr int Fineness = 10;
  Size size;
  std::vector<DrawnShape> shapes;
};

// Windows metafile with the placeable header, at 96 dots an inch.
std::vector<std::uint8_t> EncodeWmf(const NotedDrawing& drawing);
// Enhanced metafile, at 96 dots an inch.
std::vector<std::uint8_t> EncodeEmf(const NotedDrawing& drawing);

}  // namespace lumidex
