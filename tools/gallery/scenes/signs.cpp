#include <cmath>
#include <numbers>

#include "gallery/scenes/scenes.h"

namespace lumidex {

void DrawStar(Canvas& canvas) {
  for (int i = 0; i < 10; ++i) {
    const double radius = i % 2 == 0 ? 143 : 63, angle = std::numbers::pi * (i / 5.0 - 0.5);
    canvas.LineTo(200 + radius * std::cos(angle), 159 + radius * std::sin(angle));
  }
  canvas.Close();
  canvas.FillAndStroke(
      Paint::Linear({120, 30}, {260, 285}, {{0, Hex(0xFFF2A8)}, {0.5, Hex(0xF8C030)}, {1, Hex(0xD8841C)}}),
      Hex(0x8A4C10), 10);
}

void DrawPointerArrow(Canvas& canvas) {
  canvas.Polygon({{69, 19}, {69, 225}, {119, 180}, {152, 255}, {191, 238}, {158, 163}, {224, 159}});
  canvas.FillAndStroke(Hex(0xFFFFFF), Hex(0x182030), 19);
}

}  // namespace lumidex
