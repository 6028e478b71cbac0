#pragma once
// Turns pixels, hatches and placed images into what the renderer paints with.

#include <cstdint>
#include <optional>

#include "pictures/metafile/cairo_handles.h"
#include "pictures/metafile/canvas.h"

namespace lumidex::metafile {

// A surface over the words of `pixels`, which must outlive it.
CairoSurface SharedSurface(Pixels& pixels, cairo_format_t format);
// An empty surface whose coordinates are those of `box`, a box of whole pixels.
CairoSurface BlankSurface(const Box& box, cairo_format_t format);
// A row of a 32-bit image surface, counted from its top; null when the surface could not be made.
std::uint32_t* SurfaceRow(cairo_surface_t* surface, int y);

CairoPattern SolidPattern(std::uint32_t colour, double opacity = 1);
// Makes the pattern read its source through the inverse of `toSheet`.
void MapPattern(cairo_pattern_t* pattern, const Matrix& toSheet);
CairoPattern TilePattern(cairo_surface_t* tile, const Ink& ink);
// A copy in the renderer's own form.
CairoSurface CopiedSurface(const Pixels& pixels);

struct PlacedImage {
  Pixels image;  // what the pattern may read
  CairoPattern pattern;
  Path outline;          // on the sheet
  double shrinking = 1;  // pixels of the image per pixel of the sheet, at least 1
  bool scaled = false;   // or turned, so that its pixels are mixed with each other

  double CostPerPixel() const { return 10 + 10 * shrinking; }
};

// Upright images are moved to whole pixels, so that one cut into strips shows no seams. Nothing when the
// part is empty or its map can not be used.
std::optional<PlacedImage> PlaceImage(const ImagePart& part);

}  // namespace lumidex::metafile
