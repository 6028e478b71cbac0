#include <array>

#include "gallery/scenes/scenes.h"

namespace lumidex {
namespace {

void DrawLeaf(Canvas& canvas, Point foot, double length, double angle, Colour light, Colour dark) {
  canvas.Within([&] {
    canvas.Translate(foot.x, foot.y);
    canvas.Rotate(angle);
    canvas.MoveTo(0, 0);
    canvas.CurveTo({length * 0.3, -length * 0.26}, {length * 0.75, -length * 0.2}, {length, 0});
    canvas.CurveTo({length * 0.75, length * 0.2}, {length * 0.3, length * 0.26}, {0, 0});
    canvas.Fill(Paint::Linear({0, -length * 0.2}, {0, length * 0.2},
                              {{0, light}, {0.5, Mix(light, dark, 0.4)}, {0.52, dark}, {1, dark}}));
    canvas.Line(0, 0, length * 0.95, 0);
    for (int i = 1; i < 6; ++i) {
      canvas.Line(length * 0.14 * i, 0, length * (0.14 * i + 0.14), -length * 0.11);
      canvas.Line(length * 0.14 * i, 0, length * (0.14 * i + 0.14), length * 0.11);
    }
    canvas.Stroke(Mix(dark, Hex(0x000000), 0.2), length * 0.012);
  });
}

void DrawForest(Canvas& canvas) {
  canvas.FillAll(Paint::Radial(
      {150, 90}, 340, {{0, Hex(0xCDEBA8)}, {0.4, Hex(0x6FB27A)}, {0.75, Hex(0x2C6E5C)}, {1, Hex(0x123C3E)}}));
  for (const auto& [x, y, size, alpha] : {std::array{60.0, 70.0, 26.0, 0.2},
                                          {130.0, 40.0, 18.0, 0.25},
                                          {300.0, 60.0, 34.0, 0.12},
                                          {350.0, 150.0, 22.0, 0.14},
                                          {40.0, 170.0, 34.0, 0.12},
                                          {250.0, 30.0, 14.0, 0.22}}) {
    canvas.Circle(x, y, size);
    canvas.Fill(Hex(0xF4FFD0, alpha));
  }
  const std::array<std::array<double, 4>, 10> leaves{{{-12, 60, 110, 18},
                                                      {-20, 130, 120, -16},
                                                      {410, 30, 130, 158},
                                                      {414, 120, 120, 196},
                                                      {60, -20, 110, 62},
                                                      {330, -24, 120, 112},
                                                      {-14, 262, 130, -34},
                                                      {418, 250, 130, 208},
                                                      {150, 322, 110, -70},
                                                      {300, 320, 120, -112}}};
  for (const auto& [x, y, length, angle] : leaves)
    DrawLeaf(canvas, {x, y}, length, angle, Hex(0x5CAE5A), Hex(0x1F6A48));
}

void DrawBranch(Canvas& canvas) {
  canvas.Smooth({{-10, 262}, {80, 248}, {190, 246}, {300, 236}, {412, 214}}, false);
  canvas.Stroke(Hex(0x4A3220), 18);
  canvas.Smooth({{-10, 258}, {80, 244}, {190, 242}, {300, 232}, {412, 210}}, false);
  canvas.Stroke(Hex(0x8A6440), 8);
  canvas.Smooth({{-10, 256}, {80, 242}, {190, 240}, {300, 230}, {412, 208}}, false);
  canvas.Stroke(Hex(0xB88C5C), 2.4);
}

void DrawTail(Canvas& canvas) {
  const auto feather = [&](Point from, Point bend, Point tip, double width, Colour colour) {
    canvas.MoveTo(from.x, from.y);
    canvas.CurveTo(bend, bend, tip);
    canvas.Stroke(colour, width);
  };
  feather({222, 206}, {262, 262}, {276, 330}, 17, Hex(0x8C1C24));
  feather({214, 208}, {244, 262}, {250, 330}, 16, Hex(0xC92B2E));
  feather({230, 204}, {280, 250}, {304, 322}, 12, Hex(0x1F5FB4));
  feather({212, 210}, {230, 262}, {230, 322}, 10, Hex(0xF08A2C));
}

void DrawBody(Canvas& canvas) {
  canvas.Smooth({{140, 62},
                 {166, 46},
                 {194, 56},
                 {206, 90},
                 {228, 140},
                 {240, 190},
                 {228, 226},
                 {196, 240},
                 {164, 226},
                 {144, 184},
                 {140, 140},
                 {132, 104}},
                true);
  canvas.Fill(
      Paint::Radial({158, 110}, 150, {{0, Hex(0xFF6A50)}, {0.45, Hex(0xE2322E)}, {1, Hex(0x8C1420)}}));
  for (int row = 0; row < 8; ++row)
    for (int i = 0; i < 4; ++i) {
      const double x = 152 + i * 12 + row % 2 * 6, y = 128 + row * 12;
      canvas.Arc(x, y, 6, 25, 155);
      canvas.Stroke(Hex(0x9C1820, 0.45), 1.4);
    }
}

void DrawWing(Canvas& canvas) {
  const auto band = [&](std::initializer_list<Point> points, Colour light, Colour dark) {
    canvas.Smooth(points, true);
    canvas.Fill(Paint::Linear({180, 100}, {262, 250}, {{0, light}, {1, dark}}));
  };
  band({{198, 112}, {228, 132}, {256, 186}, {272, 262}, {248, 250}, {218, 214}, {194, 160}}, Hex(0x3C7FE0),
       Hex(0x123A84));
  band({{196, 110}, {224, 128}, {246, 170}, {252, 212}, {226, 196}, {200, 156}}, Hex(0xF8D84C),
       Hex(0xD88A18));
  band({{194, 108}, {218, 120}, {236, 150}, {238, 178}, {216, 164}, {196, 138}}, Hex(0xF0563C),
       Hex(0xB4202A));
  for (const auto& [x, y] : {std::array{252.0, 218.0}, {240.0, 208.0}, {229.0, 196.0}}) {
    canvas.Smooth({{x - 14, y - 30}, {x + 2, y}, {x + 14, y + 34}}, false);
    canvas.Stroke(Hex(0x0E2C66, 0.55), 1.6);
  }
}

void DrawHead(Canvas& canvas) {
  canvas.Smooth({{132, 74}, {148, 62}, {168, 68}, {172, 88}, {160, 106}, {140, 104}}, true);
  canvas.Fill(Paint::Radial({148, 82}, 30, {{0, Hex(0xFFFDF4)}, {1, Hex(0xE6D8C8)}}));
  for (int i = 0; i < 3; ++i)
    canvas.Smooth({{141.0 + i, 92.0 + i * 5}, {152, 95.0 + i * 5}, {163.0 - i, 91.0 + i * 5}}, false);
  canvas.Stroke(Hex(0xD8584C, 0.6), 1.2);
  canvas.Circle(156, 79, 6.4);
  canvas.FillAndStroke(Hex(0xF8D870), Hex(0x4A2A20), 1.4);
  canvas.Circle(155.4, 79, 3.2);
  canvas.Fill(Hex(0x14100E));
  canvas.Circle(154.2, 77.6, 1.1);
  canvas.Fill(Hex(0xFFFFFF));
  canvas.MoveTo(140, 66);
  canvas.CurveTo({112, 60}, {96, 84}, {108, 124});
  canvas.CurveTo({114, 104}, {126, 100}, {138, 100});
  canvas.CurveTo({142, 90}, {144, 78}, {140, 66});
  canvas.Fill(
      Paint::Linear({102, 70}, {140, 100}, {{0, Hex(0xFFF6E2)}, {0.6, Hex(0xD8C4A4)}, {1, Hex(0x8A7458)}}));
  canvas.MoveTo(138, 101);
  canvas.CurveTo({126, 102}, {120, 108}, {119, 118});
  canvas.CurveTo({126, 122}, {136, 116}, {141, 106});
  canvas.Close();
  canvas.Fill(Hex(0x3A3230));
}

void DrawFeet(Canvas& canvas) {
  for (const double x : {176.0, 202.0})
    for (int toe = 0; toe < 3; ++toe) {
      canvas.Smooth({{x + toe * 6, 232}, {x + toe * 6 - 2, 242}, {x + toe * 6 - 1, 251}}, false);
      canvas.Stroke(Hex(0x4C4A50), 4.2);
    }
}

}  // namespace

void DrawParrot(Canvas& canvas) {
  DrawForest(canvas);
  DrawTail(canvas);
  DrawBranch(canvas);
  DrawBody(canvas);
  DrawWing(canvas);
  DrawHead(canvas);
  DrawFeet(canvas);
  DrawLeaf(canvas, {330, 226}, 74, 38, Hex(0x8CD86A), Hex(0x2C8A4C));
  DrawLeaf(canvas, {344, 224}, 66, -36, Hex(0x7CCC62), Hex(0x2C8A4C));
  DrawLeaf(canvas, {56, 248}, 62, 128, Hex(0x8CD86A), Hex(0x2C8A4C));
}

}  // namespace lumidex
