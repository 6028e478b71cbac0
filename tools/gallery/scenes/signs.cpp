#include <cmath>
#include <numbers>

#include "gallery/scenes/scenes.h"

namespace lumidex {

void DrawStar(Canvas& canvas) {
  for (int i = 0; i < 10; ++i) {
    const double radius = i % 2 == 0 ? 190 : 84, angle = std::numbers::pi * (i / 5.0 - 0.5);
    canvas.LineTo(200 + radius * std::cos(angle), 212 + radius * std::sin(angle));
  }
  canvas.Close();
  canvas.FillAndStroke(
      Paint::Linear({100, 40}, {280, 380}, {{0, Hex(0xFFF2A8)}, {0.5, Hex(0xF8C030)}, {1, Hex(0xD8841C)}}),
      Hex(0x8A4C10), 14);
}

void DrawPointerArrow(Canvas& canvas) {
  canvas.Polygon({{25, 25}, {25, 300}, {92, 240}, {136, 340}, {188, 318}, {144, 218}, {232, 212}});
  canvas.FillAndStroke(Hex(0xFFFFFF), Hex(0x182030), 25);
}

}  // namespace lumidex
