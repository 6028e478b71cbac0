#include <array>

#include "gallery/scenes/scenes.h"

namespace lumidex {
namespace {

void DrawRoom(Canvas& canvas) {
  canvas.FillAll(
      Paint::Linear({0, 0}, {400, 220}, {{0, Hex(0x7C8C78)}, {0.5, Hex(0x4F5F55)}, {1, Hex(0x28332F)}}));
  canvas.Polygon({{20, -10}, {170, -10}, {270, 200}, {90, 200}});
  canvas.Fill(Paint::Vertical(0, 200, Hex(0xFFF3C8, 0.28), Hex(0xFFF3C8, 0.06)));
  canvas.Rectangle(0, 196, 400, 104);
  canvas.Fill(Paint::Vertical(196, 300, Hex(0xA8703E), Hex(0x5C3418)));
  for (int i = 0; i < 7; ++i) {
    const double y = 200 + i * i * 2.2 + i * 3;
    canvas.Smooth({{0, y}, {90, y + 2}, {210, y - 1}, {320, y + 2}, {400, y}}, false);
    canvas.Stroke(Hex(0x3E2210, 0.35), 0.8);
  }
  canvas.Rectangle(0, 196, 400, 3);
  canvas.Fill(Hex(0xE2B27A, 0.6));
}

void DrawShadow(Canvas& canvas, double x, double y, double radiusX, double radiusY) {
  canvas.Within([&] {
    canvas.Translate(x, y);
    canvas.Scale(radiusX, radiusY);
    canvas.Circle(0, 0, 1);
    canvas.Fill(Paint::Radial({0, 0}, 1,
                              {{0, Hex(0x1E0F06, 0.75)}, {0.6, Hex(0x1E0F06, 0.4)}, {1, Hex(0x1E0F06, 0)}}));
  });
}

void DrawJug(Canvas& canvas) {
  DrawShadow(canvas, 318, 246, 74, 13);
  canvas.MoveTo(330, 112);
  canvas.CurveTo({382, 96}, {392, 176}, {334, 196});
  canvas.Stroke(Hex(0x24567C), 10);
  canvas.MoveTo(330, 112);
  canvas.CurveTo({380, 98}, {388, 174}, {334, 195});
  canvas.Stroke(Hex(0x5C9CC4), 4);
  canvas.Smooth({{256, 78},
                 {268, 84},
                 {304, 84},
                 {324, 80},
                 {322, 104},
                 {336, 132},
                 {344, 176},
                 {334, 226},
                 {316, 244},
                 {264, 244},
                 {246, 226},
                 {236, 176},
                 {246, 132},
                 {262, 104}},
                true);
  canvas.Fill(Paint::Linear({236, 0}, {344, 0},
                            {{0, Hex(0x3F83B4)},
                             {0.22, Hex(0x9CCBE6)},
                             {0.36, Hex(0x6AABD2)},
                             {0.75, Hex(0x235A86)},
                             {1, Hex(0x143A5C)}}));
  canvas.Ellipse(291, 82, 32, 6);
  canvas.FillAndStroke(Hex(0x0F2A42), Hex(0x9CCBE6), 1.6);
  canvas.Smooth({{240, 160}, {262, 168}, {291, 170}, {320, 168}, {341, 160}}, false);
  canvas.Smooth({{239, 194}, {262, 202}, {291, 205}, {320, 202}, {342, 194}}, false);
  canvas.Stroke(Hex(0xF2F0E0, 0.75), 3);
  for (int i = 0; i < 6; ++i) {
    canvas.Circle(254 + i * 15, 184.5 - (i - 2.5) * (i - 2.5) * 0.6 + 2, 3.4);
    canvas.Fill(Hex(0xF2C04C, 0.9));
  }
  canvas.Ellipse(262, 132, 5, 22);
  canvas.Fill(Hex(0xFFFFFF, 0.45));
}

void DrawApple(Canvas& canvas, Point centre, double radius, Colour light, Colour dark) {
  const auto [x, y] = centre;
  DrawShadow(canvas, x + radius * 0.3, y + radius * 0.86, radius * 1.4, radius * 0.32);
  canvas.Smooth({{x, y - radius * 0.78},
                 {x + radius * 0.5, y - radius * 0.92},
                 {x + radius, y - radius * 0.2},
                 {x + radius * 0.68, y + radius * 0.72},
                 {x + radius * 0.2, y + radius * 0.9},
                 {x, y + radius * 0.82},
                 {x - radius * 0.2, y + radius * 0.9},
                 {x - radius * 0.68, y + radius * 0.72},
                 {x - radius, y - radius * 0.2},
                 {x - radius * 0.5, y - radius * 0.92}},
                true);
  canvas.Fill(Paint::Radial({x - radius * 0.35, y - radius * 0.35}, radius * 1.6,
                            {{0, light}, {0.45, Mix(light, dark, 0.5)}, {1, dark}}));
  canvas.Smooth({{x + radius * 0.02, y - radius * 0.72},
                 {x + radius * 0.06, y - radius},
                 {x + radius * 0.22, y - radius * 1.22}},
                false);
  canvas.Stroke(Hex(0x4A2C14), radius * 0.09);
  canvas.Smooth({{x + radius * 0.12, y - radius * 1.02},
                 {x + radius * 0.4, y - radius * 1.32},
                 {x + radius * 0.76, y - radius * 1.22},
                 {x + radius * 0.46, y - radius * 1.0}},
                true);
  canvas.Fill(Hex(0x6F9A3A));
  canvas.Ellipse(x - radius * 0.42, y - radius * 0.42, radius * 0.15, radius * 0.24);
  canvas.Fill(Hex(0xFFFFFF, 0.6));
}

void DrawPear(Canvas& canvas) {
  DrawShadow(canvas, 214, 258, 44, 10);
  canvas.Smooth({{196, 158},
                 {208, 160},
                 {214, 184},
                 {232, 212},
                 {232, 240},
                 {212, 258},
                 {188, 258},
                 {168, 240},
                 {168, 212},
                 {184, 186},
                 {188, 162}},
                true);
  canvas.Fill(Paint::Radial({184, 216}, 66, {{0, Hex(0xF7F0A0)}, {0.5, Hex(0xC9C94A)}, {1, Hex(0x6E7A22)}}));
  canvas.Ellipse(220, 230, 12, 18);
  canvas.Fill(Paint::Radial({220, 230}, 18, {{0, Hex(0xD86A3A, 0.5)}, {1, Hex(0xD86A3A, 0)}}));
  canvas.Smooth({{198, 160}, {200, 150}, {208, 141}}, false);
  canvas.Stroke(Hex(0x4A2C14), 3.2);
  canvas.Ellipse(182, 214, 4, 9);
  canvas.Fill(Hex(0xFFFFFF, 0.55));
}

void DrawGrapes(Canvas& canvas) {
  DrawShadow(canvas, 62, 268, 58, 11);
  for (const auto& [x, y] : {std::array{34.0, 232.0},
                             {52.0, 226.0},
                             {70.0, 230.0},
                             {28.0, 246.0},
                             {45.0, 243.0},
                             {62.0, 244.0},
                             {80.0, 244.0},
                             {36.0, 259.0},
                             {54.0, 260.0},
                             {72.0, 260.0},
                             {90.0, 258.0}}) {
    canvas.Circle(x, y, 10.5);
    canvas.Fill(
        Paint::Radial({x - 3, y - 4}, 15, {{0, Hex(0xB492D8)}, {0.45, Hex(0x6A3F98)}, {1, Hex(0x2C1448)}}));
    canvas.Circle(x - 3.6, y - 4.4, 2);
    canvas.Fill(Hex(0xFFFFFF, 0.7));
  }
  canvas.Smooth({{54, 224}, {56, 210}, {70, 200}}, false);
  canvas.Stroke(Hex(0x5E4320), 3);
}

}  // namespace

void DrawStillLife(Canvas& canvas) {
  DrawRoom(canvas);
  DrawJug(canvas);
  DrawPear(canvas);
  DrawApple(canvas, {128, 228}, 34, Hex(0xFF8A6A), Hex(0x8C1420));
  DrawApple(canvas, {258, 254}, 29, Hex(0xD8EC84), Hex(0x4E8420));
  DrawGrapes(canvas);
}

}  // namespace lumidex
