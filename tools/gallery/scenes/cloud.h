#pragma once
// A flat cloud, as several scenes have one.

#include "drawing/canvas.h"

namespace lumidex {

// `size` is half its width; the centre is that of its lowest layer.
inline void DrawCloud(Canvas& canvas, double x, double y, double size, Colour colour) {
  canvas.Ellipse(x, y, size, size * 0.16);
  canvas.Ellipse(x - size * 0.28, y - size * 0.11, size * 0.4, size * 0.2);
  canvas.Ellipse(x + size * 0.24, y - size * 0.13, size * 0.45, size * 0.22);
  canvas.Fill(colour);
}

}  // namespace lumidex
