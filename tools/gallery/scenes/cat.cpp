#include <array>

#include "gallery/scenes/scenes.h"

namespace lumidex {
namespace {

void DrawWindow(Canvas& canvas) {
  canvas.FillAll(Paint::Linear({0, 0}, {400, 300}, {{0, Hex(0xD8D8D8)}, {1, Hex(0x8A8A8A)}}));
  canvas.Rectangle(70, 24, 260, 216);
  canvas.Fill(Paint::Vertical(24, 240, Hex(0x3C3C3C), Hex(0xB0B0B0)));
  canvas.Circle(268, 84, 34);
  canvas.Fill(Hex(0xFFFFFF));
  canvas.Circle(256, 76, 6);
  canvas.Circle(280, 94, 8);
  canvas.Circle(272, 68, 4);
  canvas.Fill(Hex(0xD0D0D0));
  for (const auto& [x, y] : {std::array{100.0, 60.0},
                             {134.0, 44.0},
                             {160.0, 92.0},
                             {112.0, 118.0},
                             {214.0, 50.0},
                             {310.0, 150.0}}) {
    canvas.Polygon({{x, y - 5},
                    {x + 1.4, y - 1.4},
                    {x + 5, y},
                    {x + 1.4, y + 1.4},
                    {x, y + 5},
                    {x - 1.4, y + 1.4},
                    {x - 5, y},
                    {x - 1.4, y - 1.4}});
    canvas.Fill(Hex(0xFFFFFF));
  }
  canvas.Rectangle(70, 24, 260, 216);
  canvas.Stroke(Hex(0xFFFFFF), 12);
  canvas.Line(200, 24, 200, 240);
  canvas.Line(70, 130, 330, 130);
  canvas.Stroke(Hex(0xFFFFFF), 7);
  canvas.Rectangle(63, 17, 274, 230);
  canvas.Stroke(Hex(0x000000), 2.4);
  canvas.Rectangle(40, 240, 320, 18);
  canvas.FillAndStroke(Hex(0xFFFFFF), Hex(0x000000), 2.4);
}

void DrawAnimal(Canvas& canvas) {
  const Colour fur = Hex(0x000000);
  canvas.MoveTo(176, 232);
  canvas.CurveTo({230, 262}, {262, 250}, {256, 286});
  canvas.Stroke(fur, 13);
  canvas.Smooth(
      {{128, 148}, {150, 164}, {176, 196}, {184, 240}, {150, 243}, {104, 242}, {92, 236}, {104, 196}}, true);
  canvas.Fill(fur);
  canvas.Polygon(
      {{92, 120}, {94, 72}, {118, 96}, {140, 96}, {163, 72}, {165, 120}, {150, 150}, {128, 158}, {106, 150}});
  canvas.Fill(fur);
  canvas.Ellipse(128.5, 124, 36, 31);
  canvas.Fill(fur);
  for (const double x : {114.0, 143.0}) {
    canvas.Ellipse(x, 120, 8, 9);
    canvas.Fill(Hex(0xFFFFFF));
    canvas.Ellipse(x, 120, 2.6, 8);
    canvas.Fill(fur);
  }
  canvas.Polygon({{124, 134}, {133, 134}, {128.5, 139}});
  canvas.Fill(Hex(0xFFFFFF));
  for (int i = -1; i <= 1; ++i) {
    canvas.Line(108, 139 + i * 2, 76, 138 + i * 8);
    canvas.Line(149, 139 + i * 2, 181, 138 + i * 8);
  }
  canvas.Stroke(Hex(0xFFFFFF), 1.4);
}

}  // namespace

void DrawCat(Canvas& canvas) {
  DrawWindow(canvas);
  DrawAnimal(canvas);
}

void DrawCatPoster(Canvas& canvas) {
  canvas.FillAll(Hex(0xFFFFFF));
  canvas.RoundedRectangle(90, 16, 220, 268, 6);
  canvas.Stroke(Hex(0x000000), 2);
  canvas.Rectangle(104, 32, 192, 146);
  canvas.Stroke(Hex(0x000000), 3);
  canvas.Within([&] {
    canvas.Rectangle(108, 36, 184, 138);
    canvas.Clip();
    canvas.Translate(108, 36);
    canvas.Scale(0.46, 0.46);
    DrawCat(canvas);
  });
  canvas.Text("The Cat", 200, 214, 30, Weight::Bold, Hex(0x000000));
  canvas.Text("at the window", 200, 236, 15, Weight::Normal, Hex(0x000000));
  for (int i = 0; i < 5; ++i) {
    const double x = 132 + i * 34, y = i % 2 == 0 ? 258 : 264;
    canvas.Ellipse(x, y + 3, 5, 4);
    for (int toe = -1; toe <= 1; ++toe) canvas.Circle(x + toe * 4.6, y - 4 + toe * toe * 1.5, 1.9);
    canvas.Fill(Hex(0x000000));
  }
}

}  // namespace lumidex
