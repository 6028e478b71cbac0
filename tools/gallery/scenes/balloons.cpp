#include <array>

#include "gallery/scenes/cloud.h"
#include "gallery/scenes/scenes.h"

namespace lumidex {
namespace {

struct Scheme {
  Colour bright, second, dark;
};

void DrawBalloon(Canvas& canvas, Point top, double size, const Scheme& scheme) {
  canvas.Within([&] {
    canvas.Translate(top.x, top.y);
    canvas.Scale(size / 100, size / 100);
    canvas.Line(-20, 104, -9, 124);
    canvas.Line(20, 104, 9, 124);
    canvas.Line(-7, 106, -4, 124);
    canvas.Line(7, 106, 4, 124);
    canvas.Stroke(Hex(0x4A3A34), 1.6);
    canvas.RoundedRectangle(-11, 123, 22, 16, 3);
    canvas.Fill(Paint::Linear({-11, 0}, {11, 0}, {{0, Hex(0xC08A50)}, {1, Hex(0x6E4420)}}));
    canvas.Rectangle(-12, 122, 24, 3.5);
    canvas.Fill(Hex(0x5A3618));
    const auto envelope = [&] {
      canvas.MoveTo(0, 0);
      canvas.CurveTo({34, 0}, {52, 24}, {52, 48});
      canvas.CurveTo({52, 76}, {30, 90}, {20, 106});
      canvas.LineTo(-20, 106);
      canvas.CurveTo({-30, 90}, {-52, 76}, {-52, 48});
      canvas.CurveTo({-52, 24}, {-34, 0}, {0, 0});
      canvas.Close();
    };
    envelope();
    canvas.Fill(scheme.bright);
    canvas.Within([&] {
      envelope();
      canvas.Clip();
      // One strip of cloth between two meridians, told by their distance from the middle at the widest place.
      const auto strip = [&](double left, double right) {
        canvas.MoveTo(0, 0);
        canvas.CurveTo({right * 0.9, 2}, {right, 30}, {right, 48});
        canvas.CurveTo({right, 76}, {right * 0.6, 92}, {right * 0.4, 108});
        canvas.LineTo(left * 0.4, 108);
        canvas.CurveTo({left * 0.6, 92}, {left, 76}, {left, 48});
        canvas.CurveTo({left, 30}, {left * 0.9, 2}, {0, 0});
        canvas.Fill(scheme.second);
      };
      strip(-46, -31);
      strip(-15, 15);
      strip(31, 46);
      canvas.Rectangle(-60, 50, 120, 9);
      canvas.Fill(scheme.dark);
      canvas.Rectangle(-60, -5, 120, 120);
      canvas.Fill(Paint::Radial(
          {-18, 26}, 92, {{0, Hex(0xFFFFFF, 0.45)}, {0.4, Hex(0xFFFFFF, 0)}, {1, Hex(0x20103C, 0.55)}}));
    });
  });
}

void DrawHills(Canvas& canvas) {
  canvas.Smooth({{-20, 214},
                 {50, 196},
                 {120, 206},
                 {200, 186},
                 {280, 204},
                 {350, 188},
                 {420, 200},
                 {420, 310},
                 {-20, 310}},
                true);
  canvas.Fill(Paint::Vertical(186, 250, Hex(0x9CC4A4), Hex(0x6FA67E)));
  canvas.Smooth(
      {{-30, 238}, {60, 232}, {140, 244}, {230, 222}, {320, 236}, {430, 224}, {430, 320}, {-30, 320}}, true);
  canvas.Fill(Paint::Vertical(222, 290, Hex(0x74B25E), Hex(0x3E8046)));
  canvas.Within([&] {
    canvas.Smooth(
        {{-30, 282}, {70, 256}, {170, 270}, {260, 262}, {350, 276}, {430, 262}, {430, 330}, {-30, 330}},
        true);
    canvas.Clip();
    canvas.Rectangle(0, 240, 400, 60);
    canvas.Fill(Paint::Vertical(252, 300, Hex(0xE8CC62), Hex(0xB88A30)));
    for (int i = -12; i < 30; ++i) {
      canvas.MoveTo(200 + i * 10.0, 252);
      canvas.CurveTo({190 + i * 14.0, 270}, {180 + i * 20.0, 285}, {170 + i * 26.0, 304});
    }
    canvas.Stroke(Hex(0x96702A, 0.55), 1.4);
  });
  for (const auto& [x, y, size] : {std::array{38.0, 230.0, 9.0},
                                   {52.0, 231.0, 7.0},
                                   {148.0, 240.0, 8.0},
                                   {322.0, 232.0, 10.0},
                                   {338.0, 233.0, 8.0},
                                   {246.0, 226.0, 6.0},
                                   {376.0, 228.0, 7.0}}) {
    canvas.Rectangle(x - 0.8, y, 1.6, size);
    canvas.Fill(Hex(0x4A3422));
    canvas.Circle(x, y - size * 0.2, size * 0.8);
    canvas.Fill(Paint::Radial({x - size * 0.3, y - size * 0.5}, size * 1.3,
                              {{0, Hex(0x7CC060)}, {1, Hex(0x1F5A38)}}));
  }
}

}  // namespace

void DrawBalloons(Canvas& canvas) {
  canvas.FillAll(
      Paint::Linear({0, 0}, {0, 220}, {{0, Hex(0x5BA4E6)}, {0.6, Hex(0xBFE2F8)}, {1, Hex(0xFFEBC8)}}));
  for (const auto& [x, y, size] :
       {std::array{60.0, 150.0, 52.0}, {330.0, 60.0, 44.0}, {250.0, 158.0, 60.0}, {24.0, 40.0, 30.0}})
    DrawCloud(canvas, x, y, size, Hex(0xFFFFFF, 0.8));
  DrawHills(canvas);
  DrawBalloon(canvas, {122, 22}, 118, {Hex(0xE8483C), Hex(0xF8E6B4), Hex(0x8C1C2C)});
  DrawBalloon(canvas, {270, 58}, 84, {Hex(0x3C78D0), Hex(0xF4C23C), Hex(0x1C3C84)});
  DrawBalloon(canvas, {352, 118}, 52, {Hex(0x8A4CB4), Hex(0xF4A8C4), Hex(0x4A1F70)});
  DrawBalloon(canvas, {206, 132}, 34, {Hex(0x2FA084), Hex(0xE8F4D8), Hex(0x12564A)});
}

}  // namespace lumidex
