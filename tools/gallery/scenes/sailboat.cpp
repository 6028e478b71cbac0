#include "gallery/scenes/scenes.h"

namespace lumidex {
namespace {

void DrawWaves(Canvas& canvas, double y, double length, double phase, Colour colour) {
  canvas.MoveTo(-length, SceneHeight + 10);
  canvas.LineTo(phase - length, y);
  for (double x = phase - length; x < SceneWidth + length; x += length)
    canvas.CurveTo({x + length * 0.3, y + 11}, {x + length * 0.7, y + 11}, {x + length, y});
  canvas.LineTo(SceneWidth + length, SceneHeight + 10);
  canvas.Close();
  canvas.Fill(colour);
}

}  // namespace

void DrawSailboat(Canvas& canvas) {
  canvas.FillAll(Hex(0xA8DCF0));
  canvas.Circle(316, 74, 52);
  canvas.Fill(Hex(0xFBE7A0));
  canvas.Circle(316, 74, 36);
  canvas.Fill(Hex(0xF7C23C));
  for (const double x : {66.0, 236.0}) {
    const double y = x < 100 ? 62 : 116;
    canvas.Circle(x, y, 17);
    canvas.Circle(x + 22, y - 9, 22);
    canvas.Circle(x + 46, y, 16);
    canvas.RoundedRectangle(x - 26, y, 90, 17, 8.5);
    canvas.Fill(Hex(0xFFFFFF));
  }
  DrawWaves(canvas, 196, 44, 0, Hex(0x5CB4D8));
  DrawWaves(canvas, 218, 52, 20, Hex(0x3A8CC0));
  canvas.Polygon({{186, 30}, {186, 196}, {92, 196}});
  canvas.Fill(Hex(0xFFFFFF));
  canvas.Polygon({{186, 120}, {186, 150}, {118, 150}, {135, 120}});
  canvas.Fill(Hex(0xD8433C));
  canvas.Polygon({{200, 52}, {200, 196}, {274, 196}});
  canvas.Fill(Hex(0xF2B632));
  canvas.Rectangle(190, 22, 6, 190);
  canvas.Fill(Hex(0x5A3A28));
  canvas.Polygon({{190, 22}, {190, 40}, {160, 31}});
  canvas.Fill(Hex(0xD8433C));
  canvas.MoveTo(84, 206);
  canvas.LineTo(292, 206);
  canvas.CurveTo({286, 238}, {262, 252}, {238, 252});
  canvas.LineTo(136, 252);
  canvas.CurveTo({112, 252}, {92, 236}, {84, 206});
  canvas.Close();
  canvas.Fill(Hex(0x8A4A2C));
  canvas.Polygon({{84, 206}, {292, 206}, {289, 218}, {88, 218}});
  canvas.Fill(Hex(0xF4E4C0));
  for (const double x : {140.0, 188.0, 236.0}) canvas.Circle(x, 233, 6);
  canvas.Fill(Hex(0xF4E4C0));
  DrawWaves(canvas, 244, 48, 8, Hex(0x2A6CA8));
  DrawWaves(canvas, 268, 58, 30, Hex(0x1C4A84));
}

}  // namespace lumidex
