#pragma once
// Colours that change over an area: along a line, or from an outline to a centre inside it.

#include <cstdint>
#include <vector>

#include "pictures/metafile/cairo_handles.h"
#include "pictures/metafile/geometry.h"

namespace lumidex::metafile {

struct ShadingStop {
  double place = 0;  // 0 to 1, never below the stop before
  std::uint32_t argb = 0;
};

struct Shading {
  enum class Kind { Line, Centre };
  enum class Beyond { Repeats, Mirrors };  // what a line's colours do past its ends

  Kind kind = Kind::Line;
  Beyond beyond = Beyond::Repeats;
  Matrix map;  // from the shading's coordinates to those of the drawing
  // From one end of the line to the other, or from the outline to the centre. Where the outline's own colours
  // differ, each stop says with its alpha alone how much of the centre's colour is there.
  std::vector<ShadingStop> stops;
  bool mixesWithOutline = false;

  double start = 0, end = 1;  // the x of a line's ends

  Point centre;
  std::uint32_t centreColour = 0;
  std::vector<Point> outline;
  std::vector<std::uint32_t> outlineColours;  // one for all corners, or one each
  double focus = 0;                           // the share around the centre that has its colour
};

// Each channel a `part` (0 to 1) of the way from one colour to the other.
std::uint32_t Mixed(std::uint32_t from, std::uint32_t to, double part);

// `toSheet` takes the shading's coordinates to the sheet. Null when the map can not be used.
CairoPattern LinePattern(const Shading& shading, const Matrix& toSheet);
// Draws what lies within `visible`, a box of whole pixels; nothing beyond the outline. Null as above.
CairoPattern CentrePattern(const Shading& shading, const Matrix& toSheet, const Box& visible);
// Of either pattern, for `visible`.
double ShadingCost(const Shading& shading, const Matrix& toSheet, const Box& visible);

}  // namespace lumidex::metafile
