#include <array>
#include <cmath>
#include <numbers>

#include "gallery/scenes/scenes.h"

namespace lumidex {
namespace {

constexpr double Spacing = 100;

// A star of `points` tips between two radii, its first tip pointing up.
void TraceStar(Canvas& canvas, Point centre, int points, double outer, double inner) {
  for (int i = 0; i < 2 * points; ++i) {
    const double radius = i % 2 == 0 ? outer : inner,
                 angle = std::numbers::pi * i / points - std::numbers::pi / 2;
    const double x = centre.x + radius * std::cos(angle), y = centre.y + radius * std::sin(angle);
    if (i == 0)
      canvas.MoveTo(x, y);
    else
      canvas.LineTo(x, y);
  }
  canvas.Close();
}

void DrawTile(Canvas& canvas, Point centre) {
  const Colour gold = Hex(0xF6D77A), line = Hex(0xFBF3DC);
  canvas.Circle(centre.x, centre.y, 49);
  canvas.FillAndStroke(Hex(0x145A74), line, 2);
  TraceStar(canvas, centre, 12, 47, 33);
  canvas.FillAndStroke(Hex(0x2A93A8), line, 1.8);
  TraceStar(canvas, centre, 12, 34, 22);
  canvas.FillAndStroke(Hex(0xE9A63A), Hex(0x6A3412), 1.2);
  canvas.Circle(centre.x, centre.y, 20);
  canvas.FillAndStroke(Hex(0x8E2B3C), line, 1.6);
  TraceStar(canvas, centre, 6, 18, 10.4);
  canvas.FillAndStroke(gold, Hex(0x6A3412), 1);
  canvas.Circle(centre.x, centre.y, 6);
  canvas.FillAndStroke(Hex(0x145A74), line, 1.2);
}

void DrawGap(Canvas& canvas, Point centre) {
  TraceStar(canvas, centre, 8, 20, 13);
  canvas.FillAndStroke(Hex(0xC7513F), Hex(0xFBF3DC), 1.8);
  TraceStar(canvas, centre, 4, 13, 5.5);
  canvas.Fill(Hex(0xF6D77A));
}

}  // namespace

void DrawStarTiles(Canvas& canvas) {
  canvas.FillAll(Hex(0x0E3447));
  for (double y = 0; y <= SceneHeight; y += Spacing)
    for (double x = 0; x <= SceneWidth; x += Spacing) DrawGap(canvas, {x, y});
  for (double y = Spacing / 2; y < SceneHeight; y += Spacing)
    for (double x = Spacing / 2; x < SceneWidth; x += Spacing) DrawTile(canvas, {x, y});
}

void DrawRosette(Canvas& canvas) {
  DrawStarTiles(canvas);
  canvas.FillAll(Paint::Radial(
      {200, 150}, 270, {{0, Hex(0xFFF8E0, 0.16)}, {0.5, Hex(0xFFFFFF, 0)}, {1, Hex(0x05141C, 0.45)}}));
}

}  // namespace lumidex
