#pragma once
// Transfers of pixels onto the sheet: blocks with a raster operation, through masks, blended, in
// parallelograms.

#include <span>

#include "pictures/metafile/device_context.h"

namespace lumidex::metafile {

struct Blit {
  Point target;  // logical units
  Point targetSize;
  Box source;  // pixels of the image, from its top; a negative extent mirrors
  int rasterOperation = sourceCopy;
};

Box TargetBox(const Blit& blit);

// Of one bit a pixel: any colour but black is a one.
struct Mask {
  const Pixels& pixels;
  Point from;  // the pixel that lies at the target's corner
};

void Transfer(DeviceContext& context, const Blit& blit, const Pixels& image);
// Transfers where the mask has ones, and with the other operation where it has zeros; the image may be null
// when none of the two takes one.
void TransferMasked(DeviceContext& context, const Blit& blit, const Pixels* image, const Mask& mask,
                    int zerosOperation);
// A raster operation that takes no image.
void TransferPattern(DeviceContext& context, const Box& box, int rasterOperation);
// Blends with the image's own transparency and `opacity`.
void Blend(DeviceContext& context, const Blit& blit, const Pixels& image, double opacity);
// Draws the image into the parallelogram with these corners: top left, top right, bottom left.
void DrawParallelogram(DeviceContext& context, const Box& source, std::span<const Point, 3> corners,
                       const Pixels& image);

}  // namespace lumidex::metafile
