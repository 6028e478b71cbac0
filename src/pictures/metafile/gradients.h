#pragma once
// Boxes and triangles whose corners have colours that run into each other.

#include <array>

#include "pictures/metafile/device_context.h"

namespace lumidex::metafile {

struct Vertex {
  Point at;  // logical units
  std::uint32_t colour = 0;
};

// A box between two corners, its colour running from the left (or upper) one's to the other's.
void FillGradientBox(DeviceContext& context, const Vertex& first, const Vertex& second, bool across);
void FillGradientTriangle(DeviceContext& context, const std::array<Vertex, 3>& corners);

}  // namespace lumidex::metafile
