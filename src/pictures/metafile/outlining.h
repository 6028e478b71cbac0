#pragma once
// Handing outlines to the renderer, and what filling them costs.

#include "pictures/metafile/canvas.h"

namespace lumidex::metafile {

// Units of the budget; bench_hostile measures how far what they allow stays below its limit.
inline constexpr double perShape = 1500;
inline constexpr double perPixel = 1;
inline constexpr double perGroupPixel = 4;
inline constexpr double perEdgeRow = 100;
inline constexpr double perEdgeColumn = 6;

// A quarter of a pixel more or less can not be seen, and curves become far fewer lines.
inline constexpr double tolerance = 0.2;

// Makes `path` the context's current path.
void Trace(cairo_t* context, const Path& path);
void SetFillRule(cairo_t* context, FillRule rule);
void ClipToBox(cairo_t* context, const Box& box);
// Lines as they are stroked, and the box that they may touch.
struct Stroke {
  Stroke(const Path& path, const StrokeStyle& style);
  // Of stroking the part in the visible box.
  double Cost(const Box& visible) const;
  void Paint(cairo_t* context) const;

  const StrokeStyle& style;
  Path lines;
  Box bounds;

 private:
  // How many dashes there will be; 0 for solid lines.
  double dashes_ = 0;
};
// Of filling with one colour the part of `path` that lies in `visible`.
double FillCost(const Path& path, const Box& visible);

}  // namespace lumidex::metafile
