#include <algorithm>
#include <array>
#include <cmath>

#include "gallery/scenes/cloud.h"
#include "gallery/scenes/scatter.h"
#include "gallery/scenes/scenes.h"

namespace lumidex {
namespace {

constexpr double Horizon = 196;

void DrawSky(Canvas& canvas) {
  canvas.Rectangle(0, 0, SceneWidth, Horizon);
  canvas.Fill(Paint::Linear({0, 0}, {0, Horizon},
                            {{0, Hex(0x16234F)},
                             {0.42, Hex(0x5A3E82)},
                             {0.7, Hex(0xC9566F)},
                             {0.88, Hex(0xF59A5B)},
                             {1, Hex(0xFFD58A)}}));
  Scatter random(7);
  for (int i = 0; i < 70; ++i) {
    const double x = random.Below(400), y = random.Below(92);
    canvas.Circle(x, y, 0.35 + random.Below(0.5));
    canvas.Fill(Hex(0xFFFFFF, 0.9 - y / 120));
  }
  canvas.Circle(104, Horizon, 90);
  canvas.Fill(Paint::Radial({104, Horizon}, 90, {{0, Hex(0xFFF2B8, 0.75)}, {1, Hex(0xFFC070, 0)}}));
  canvas.Circle(104, Horizon - 4, 21);
  canvas.Fill(Paint::Vertical(170, 200, Hex(0xFFF6D0), Hex(0xFFC65C)));
}

void DrawClouds(Canvas& canvas) {
  DrawCloud(canvas, 70, 96, 62, Hex(0xE07A86, 0.55));
  DrawCloud(canvas, 190, 126, 74, Hex(0xF09A70, 0.5));
  DrawCloud(canvas, 40, 148, 56, Hex(0x9C4A74, 0.45));
  DrawCloud(canvas, 350, 82, 70, Hex(0x8A5596, 0.5));
  DrawCloud(canvas, 372, 140, 52, Hex(0xF3A878, 0.45));
}

void DrawSea(Canvas& canvas) {
  canvas.Rectangle(0, Horizon, SceneWidth, SceneHeight - Horizon);
  canvas.Fill(
      Paint::Linear({0, Horizon}, {0, SceneHeight},
                    {{0, Hex(0xF0A870)}, {0.12, Hex(0xA8607C)}, {0.5, Hex(0x3C3F78)}, {1, Hex(0x15234A)}}));
  Scatter random(11);
  for (int i = 0; i < 260; ++i) {
    const double depth = i / 260.0, y = Horizon + 1 + depth * depth * 100;
    const double x = random.Below(400), length = 4 + 20 * depth;
    const double glow = std::max(0.0, 1 - std::abs(x + length / 2 - 104) / (14 + 46 * depth));
    canvas.Ellipse(x + length / 2, y, length / 2, 0.35 + depth * 0.9);
    canvas.Fill(Mix(Hex(0x8A7FB8, 0.22), Hex(0xFFE3A0, 0.85), glow));
  }
}

void DrawBeam(Canvas& canvas) {
  const Point lamp{287, 66};
  canvas.Polygon({lamp, {-10, 18}, {-10, 74}});
  canvas.Fill(Paint::Linear(lamp, {0, 46}, {{0, Hex(0xFFF6C8, 0.75)}, {1, Hex(0xFFF6C8, 0.02)}}));
  canvas.Polygon({lamp, {410, 52}, {410, 92}});
  canvas.Fill(Paint::Linear(lamp, {410, 72}, {{0, Hex(0xFFF6C8, 0.6)}, {1, Hex(0xFFF6C8, 0.1)}}));
}

void DrawCliff(Canvas& canvas) {
  canvas.Smooth({{198, 306},
                 {206, 262},
                 {226, 238},
                 {244, 214},
                 {262, 203},
                 {300, 200},
                 {346, 206},
                 {380, 212},
                 {440, 212},
                 {440, 310}},
                false);
  canvas.Fill(
      Paint::Linear({220, 200}, {340, 310}, {{0, Hex(0x6A4A60)}, {0.45, Hex(0x3A2C48)}, {1, Hex(0x1B1830)}}));
  canvas.Smooth({{244, 214},
                 {262, 203},
                 {300, 200},
                 {346, 206},
                 {380, 212},
                 {430, 210},
                 {430, 226},
                 {362, 222},
                 {318, 212},
                 {280, 212}},
                true);
  canvas.Fill(Paint::Vertical(200, 222, Hex(0x5E7A52), Hex(0x31483F)));
  const auto face = [&](std::initializer_list<Point> points, double alpha) {
    canvas.Polygon(points);
    canvas.Fill(Hex(0xE08A70, alpha));
  };
  face({{208, 262}, {228, 238}, {232, 256}, {216, 286}}, 0.4);
  face({{238, 226}, {250, 214}, {258, 236}, {246, 256}}, 0.32);
  face({{262, 240}, {280, 226}, {284, 252}, {268, 276}}, 0.2);
  for (const auto& [x, y, size] :
       {std::array{196.0, 292.0, 15.0}, {178.0, 297.0, 10.0}, {214.0, 300.0, 16.0}}) {
    canvas.Ellipse(x, y, size, size * 0.6);
    canvas.Fill(Paint::Vertical(y - size * 0.6, y + size * 0.6, Hex(0x5C4660), Hex(0x1B1830)));
  }
}

void DrawTower(Canvas& canvas) {
  canvas.Within([&] {
    canvas.Polygon({{270, 206}, {276, 84}, {298, 84}, {304, 206}});
    canvas.Clip();
    canvas.Rectangle(264, 80, 50, 130);
    canvas.Fill(Hex(0xF6EDE2));
    for (const double y : {102.0, 146.0, 190.0}) {
      canvas.Rectangle(264, y, 50, 22);
      canvas.Fill(Hex(0xC8373B));
    }
    canvas.Rectangle(264, 80, 50, 130);
    canvas.Fill(Paint::Linear(
        {270, 0}, {304, 0}, {{0, Hex(0xFFC890, 0.35)}, {0.35, Hex(0xFFFFFF, 0)}, {1, Hex(0x1A1740, 0.72)}}));
    for (const double y : {128.0, 172.0}) {
      canvas.RoundedRectangle(284, y, 6, 11, 3);
      canvas.Fill(Hex(0x3A2C48));
    }
  });
  canvas.RoundedRectangle(271, 79, 32, 6, 2);
  canvas.Fill(Hex(0x2B2440));
  for (double x = 272; x <= 302; x += 6) canvas.Line(x, 79, x, 73);
  canvas.Line(271, 73, 303, 73);
  canvas.Stroke(Hex(0x2B2440), 1.1);
  canvas.Rectangle(280, 57, 14, 22);
  canvas.Fill(Paint::Radial({287, 66}, 14, {{0, Hex(0xFFFFF0)}, {1, Hex(0xFFD25A)}}));
  for (const double x : {280.0, 287.0, 294.0}) canvas.Line(x, 57, x, 79);
  canvas.Stroke(Hex(0x2B2440, 0.8), 1);
  canvas.Polygon({{276, 58}, {287, 44}, {298, 58}});
  canvas.Fill(Hex(0xA82B33));
  canvas.Line(287, 45, 287, 38);
  canvas.Stroke(Hex(0x2B2440), 1.2);
  canvas.Circle(287, 66, 30);
  canvas.Fill(Paint::Radial({287, 66}, 30, {{0, Hex(0xFFF8D0, 0.8)}, {1, Hex(0xFFF0B0, 0)}}));
}

void DrawCottage(Canvas& canvas) {
  canvas.Rectangle(322, 187, 38, 23);
  canvas.Fill(Paint::Linear({322, 0}, {360, 0}, {{0, Hex(0xE7D3C4)}, {1, Hex(0x7A6478)}}));
  canvas.Polygon({{317, 188}, {328, 172}, {355, 172}, {366, 188}});
  canvas.Fill(Paint::Vertical(172, 188, Hex(0x8E3A44), Hex(0x5A2838)));
  canvas.Rectangle(348, 165, 6, 10);
  canvas.Fill(Hex(0x5A3A48));
  for (const double x : {328.0, 346.0}) {
    canvas.Rectangle(x, 193, 7, 7);
    canvas.Fill(Hex(0xFFDF84));
  }
  canvas.Rectangle(338, 194, 6, 16);
  canvas.Fill(Hex(0x4A2C3C));
}

void DrawGulls(Canvas& canvas) {
  for (const auto& [x, y, size] : {std::array{150.0, 88.0, 9.0}, {172.0, 76.0, 6.0}, {128.0, 104.0, 7.0}}) {
    canvas.Smooth({{x - size, y - size * 0.3}, {x - size * 0.4, y - size * 0.45}, {x, y}}, false);
    canvas.Smooth({{x, y}, {x + size * 0.4, y - size * 0.5}, {x + size, y - size * 0.2}}, false);
  }
  canvas.Stroke(Hex(0x2B2440, 0.85), 1.3);
}

}  // namespace

void DrawLighthouse(Canvas& canvas) {
  canvas.FillAll(Hex(0xF0A870));  // shows where sky and sea share a row of pixels
  DrawSky(canvas);
  DrawClouds(canvas);
  DrawSea(canvas);
  DrawBeam(canvas);
  DrawCliff(canvas);
  DrawCottage(canvas);
  DrawTower(canvas);
  DrawGulls(canvas);
}

}  // namespace lumidex
