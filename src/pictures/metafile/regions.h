#pragma once
// Areas that are painted without a pen: regions, single pixels, and parts that the picture itself bounds.
// Everything is in logical units.

#include <span>

#include "pictures/metafile/device_context.h"

namespace lumidex::metafile {

void FillRegion(DeviceContext& context, std::span<const Box> boxes, const Brush& brush);
// Paints the region's edge, inside it, `edge` wide and high.
void FrameRegion(DeviceContext& context, std::span<const Box> boxes, const Brush& brush, Point edge);
void InvertRegion(DeviceContext& context, std::span<const Box> boxes);
// Fills with the brush from `at` to the edge of that colour or, with `surface` set, of the part in that
// colour.
void FloodFill(DeviceContext& context, Point at, std::uint32_t colour, bool surface);
void SetPixel(DeviceContext& context, Point at, std::uint32_t colour);

}  // namespace lumidex::metafile
