#include <algorithm>
#include <array>
#include <vector>

#include "gallery/scenes/cloud.h"
#include "gallery/scenes/scatter.h"
#include "gallery/scenes/scenes.h"

namespace lumidex {
namespace {

constexpr double Shore = 205;

using Ridge = std::vector<Point>;

// A jagged line from left to right by halving: each middle point is moved up or down by less and less.
Ridge MakeRidge(double left, double right, double roughness, std::uint32_t seed) {
  Scatter random(seed);
  Ridge ridge{{0, left}, {SceneWidth, right}};
  for (int pass = 0; pass < 7; ++pass, roughness *= 0.55) {
    Ridge finer;
    for (std::size_t i = 0; i + 1 < ridge.size(); ++i) {
      const double shift = (random.Below(2) - 1) * roughness;
      finer.push_back(ridge[i]);
      finer.push_back({(ridge[i].x + ridge[i + 1].x) / 2, (ridge[i].y + ridge[i + 1].y) / 2 + shift});
    }
    finer.push_back(ridge.back());
    ridge = std::move(finer);
  }
  return ridge;
}

void TraceRidge(Canvas& canvas, const Ridge& ridge) {
  canvas.MoveTo(0, Shore);
  for (const Point& point : ridge) canvas.LineTo(point.x, std::min(point.y, Shore));
  canvas.LineTo(SceneWidth, Shore);
  canvas.Close();
}

void DrawSky(Canvas& canvas) {
  canvas.Rectangle(0, 0, SceneWidth, Shore);
  canvas.Fill(
      Paint::Linear({0, 0}, {0, Shore},
                    {{0, Hex(0x3F7FC4)}, {0.55, Hex(0xA9D3EE)}, {0.85, Hex(0xFBE9CF)}, {1, Hex(0xFFF4E0)}}));
  canvas.Circle(308, 58, 60);
  canvas.Fill(Paint::Radial({308, 58}, 60,
                            {{0, Hex(0xFFFBE6, 0.95)}, {0.3, Hex(0xFFF3C4, 0.5)}, {1, Hex(0xFFF3C4, 0)}}));
  canvas.Circle(308, 58, 15);
  canvas.Fill(Hex(0xFFFDF2));
  for (const auto& [x, y, size] :
       {std::array{72.0, 46.0, 40.0}, {110.0, 36.0, 30.0}, {206.0, 66.0, 34.0}, {368.0, 92.0, 38.0}})
    DrawCloud(canvas, x, y, size, Hex(0xFFFFFF, 0.72));
}

void DrawPeak(Canvas& canvas, Point top, double base, Colour light, Colour shade) {
  const double half = (Shore - top.y) * base;
  canvas.Polygon({top,
                  {top.x + half * 0.3, top.y + (Shore - top.y) * 0.34},
                  {top.x + half * 0.46, top.y + (Shore - top.y) * 0.4},
                  {top.x + half, Shore},
                  {top.x - half, Shore},
                  {top.x - half * 0.52, top.y + (Shore - top.y) * 0.5},
                  {top.x - half * 0.38, top.y + (Shore - top.y) * 0.44}});
  canvas.Fill(Paint::Vertical(top.y, Shore, light, Mix(light, Hex(0xDCE9F2), 0.55)));
  canvas.Polygon({top,
                  {top.x + half * 0.08, top.y + (Shore - top.y) * 0.3},
                  {top.x - half * 0.1, top.y + (Shore - top.y) * 0.52},
                  {top.x + half * 0.05, Shore},
                  {top.x - half, Shore},
                  {top.x - half * 0.52, top.y + (Shore - top.y) * 0.5},
                  {top.x - half * 0.38, top.y + (Shore - top.y) * 0.44}});
  canvas.Fill(Paint::Vertical(top.y, Shore, shade, Mix(shade, Hex(0xC4D6E6), 0.5)));
  // The snow ends in teeth.
  const double snow = (Shore - top.y) * 0.3;
  canvas.Polygon({top,
                  {top.x + half * 0.265, top.y + snow},
                  {top.x + half * 0.17, top.y + snow * 0.82},
                  {top.x + half * 0.11, top.y + snow * 1.15},
                  {top.x + half * 0.02, top.y + snow * 0.8},
                  {top.x - half * 0.06, top.y + snow * 1.25},
                  {top.x - half * 0.14, top.y + snow * 0.85},
                  {top.x - half * 0.26, top.y + snow}});
  canvas.Fill(
      Paint::Linear({top.x - half * 0.2, 0}, {top.x + half * 0.2, 0},
                    {{0, Hex(0xBFD3EA)}, {0.5, Hex(0xE6EFF8)}, {0.55, Hex(0xFFFFFF)}, {1, Hex(0xFFFFFF)}}));
}

void DrawForest(Canvas& canvas, double base, double size, int count, Colour colour, std::uint32_t seed) {
  Scatter random(seed);
  for (int i = 0; i < count; ++i) {
    const double x = SceneWidth * (i + random.Below(1)) / count;
    const double height = size * (0.7 + random.Below(0.6));
    for (int tier = 0; tier < 3; ++tier) {
      const double y = base - height + tier * height * 0.24, half = height * (0.12 + 0.06 * tier);
      canvas.Polygon({{x, y}, {x + half, y + height * 0.45}, {x - half, y + height * 0.45}});
      canvas.Fill(Mix(colour, Hex(0xFFFFFF), random.Below(0.1)));
    }
  }
}

void DrawShore(Canvas& canvas) {
  DrawSky(canvas);
  TraceRidge(canvas, MakeRidge(140, 120, 34, 5));
  canvas.Fill(Paint::Vertical(90, Shore, Hex(0x9DB9D6), Hex(0xE4E7E4)));
  DrawPeak(canvas, {118, 62}, 0.86, Hex(0x8C9DB6), Hex(0x5C7397));
  DrawPeak(canvas, {302, 96}, 0.95, Hex(0x93A5BC), Hex(0x6680A2));
  DrawPeak(canvas, {212, 42}, 0.78, Hex(0x7F90AA), Hex(0x4C638A));
  TraceRidge(canvas, MakeRidge(176, 164, 26, 22));
  canvas.Fill(Paint::Vertical(140, Shore, Hex(0x5F8A84), Hex(0x93B3A0)));
  TraceRidge(canvas, MakeRidge(190, 186, 14, 31));
  canvas.Fill(Paint::Vertical(170, Shore, Hex(0x3D6E5E), Hex(0x5C8A6A)));
  DrawForest(canvas, Shore + 2, 22, 64, Hex(0x28544A), 3);
}

}  // namespace

void DrawMountains(Canvas& canvas) {
  canvas.FillAll(Hex(0x2C6C92));  // shows where land and lake share a row of pixels
  DrawShore(canvas);
  canvas.Within([&] {
    canvas.Rectangle(0, Shore, SceneWidth, SceneHeight - Shore);
    canvas.Clip();
    canvas.Within([&] {
      canvas.Translate(0, 2 * Shore);
      canvas.Scale(1, -1);
      DrawShore(canvas);
    });
    canvas.Rectangle(0, Shore, SceneWidth, SceneHeight - Shore);
    canvas.Fill(Paint::Vertical(Shore, SceneHeight, Hex(0x2C6C92, 0.35), Hex(0x123C5C, 0.85)));
    Scatter random(4);
    for (int i = 0; i < 90; ++i) {
      const double depth = i / 90.0, length = 10 + 46 * depth;
      canvas.Ellipse(random.Below(420) - 10, Shore + 4 + depth * 90, length, 0.25 + 0.6 * depth);
      canvas.Fill(Hex(0xDDF0FF, 0.16));
    }
  });
  DrawForest(canvas, 318, 64, 13, Hex(0x12352F), 17);
}

}  // namespace lumidex
