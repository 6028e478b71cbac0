#include <array>
#include <string_view>
#include <utility>

#include "artwork/motifs.h"
#include "artwork/style.h"

namespace lumidex {
namespace {

// Cells of a small sunset, as a bitmap would hold it.
void DrawCells(Canvas& canvas, double x, double y, double cell, int columns, int rows) {
  constexpr std::array<std::string_view, 6> picture{"bbbbbbb", "bbyybbb", "oyyyyoo",
                                                    "ooyyooo", "ggggggg", "dgdggdg"};
  for (int row = 0; row < rows; ++row)
    for (int column = 0; column < columns; ++column) {
      const char sign = picture[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
      canvas.Rectangle(x + column * cell, y + row * cell, cell, cell);
      canvas.Fill(sign == 'b'   ? Hex(0x6DB7F2)
                  : sign == 'y' ? Hex(0xFFE04A)
                  : sign == 'o' ? Hex(0xF8A04A)
                  : sign == 'g' ? Hex(0x4FA35E)
                                : Hex(0x2F7D4B));
    }
}

void DrawStep(Canvas& canvas, double x, double y, double width, double height, Colour colour) {
  canvas.Rectangle(x, y, width, height);
  canvas.Fill(colour);
}

void Frame(Canvas& canvas) {
  canvas.Rectangle(2.5, 3.5, 19, 17);
  canvas.Stroke(Grey.dark, 1);
}

}  // namespace

void DrawWindowOfPixels(Canvas& canvas) {
  canvas.RoundedRectangle(1.5, 2.5, 21, 19, 1);
  canvas.FillAndStroke(Paper.light, Blue.dark, 1);
  canvas.Rectangle(2, 3, 20, 4);
  canvas.Fill(Blue.base);
  for (const double x : {15.0, 17.5, 20.0}) canvas.Rectangle(x, 4.5, 1.2, 1.2);
  canvas.Fill(Paper.light);
  DrawCells(canvas, 5, 8.5, 2, 7, 6);
}

void DrawPixelGrid(Canvas& canvas) {
  DrawCells(canvas, 1.5, 3, 3, 7, 6);
  for (int i = 0; i <= 7; ++i) canvas.Line(1.5 + i * 3, 3, 1.5 + i * 3, 21);
  for (int i = 0; i <= 6; ++i) canvas.Line(1.5, 3.0 + i * 3, 22.5, 3.0 + i * 3);
  canvas.Stroke(Hex(0x2A3A55, 0.55), 0.6);
}

void DrawCurve(Canvas& canvas) {
  canvas.Line(3.5, 18.5, 8.5, 3.5);
  canvas.Line(20.5, 5.5, 15.5, 20.5);
  canvas.Stroke(Grey.dark, 1);
  canvas.MoveTo(3.5, 18.5);
  canvas.CurveTo({8.5, 3.5}, {15.5, 20.5}, {20.5, 5.5});
  canvas.Stroke(Violet.base, 2.4);
  for (const Point& node : {Point{3.5, 18.5}, Point{20.5, 5.5}}) {
    canvas.Rectangle(node.x - 2, node.y - 2, 4, 4);
    canvas.FillAndStroke(Paper.light, Violet.dark, 1);
  }
  for (const Point& node : {Point{8.5, 3.5}, Point{15.5, 20.5}}) {
    canvas.Circle(node.x, node.y, 1.8);
    canvas.FillAndStroke(Amber.base, Amber.dark, 1);
  }
}

void DrawTiles(Canvas& canvas) {
  const std::array<std::pair<Point, Tones>, 4> tiles{
      {{{2.5, 2.5}, Blue}, {{13.5, 2.5}, Green}, {{2.5, 13.5}, Amber}, {{13.5, 13.5}, Red}}};
  for (const auto& [corner, tones] : tiles) {
    canvas.RoundedRectangle(corner.x, corner.y, 8, 8, 2);
    Body(canvas, tones, corner.y - 2, corner.y + 8);
  }
}

void DrawChunks(Canvas& canvas) {
  const std::array<std::pair<double, Tones>, 3> layers{{{14, Blue}, {9.5, Green}, {5, Amber}}};
  for (const auto& [y, tones] : layers) {
    canvas.Polygon({{12, y - 3.5}, {22.5, y + 1.5}, {12, y + 6.5}, {1.5, y + 1.5}});
    Body(canvas, tones, y - 4, y + 6);
  }
}

void DrawChequers(Canvas& canvas) {
  DrawStep(canvas, 2.5, 3.5, 19, 17, Paper.light);
  for (int row = 0; row < 4; ++row)
    for (int column = 0; column < 4; ++column)
      if ((row + column) % 2 == 0) DrawStep(canvas, 3 + column * 4.5, 4 + row * 4, 4.5, 4, Hex(0x000000));
  Frame(canvas);
}

void DrawGreySteps(Canvas& canvas) {
  for (int i = 0; i < 6; ++i) {
    const double level = i / 5.0;
    DrawStep(canvas, 3.0 + i * 3, 4, 3, 16, {level, level, level});
  }
  Frame(canvas);
}

void DrawColourSteps(Canvas& canvas) {
  const std::array<Colour, 6> colours{Hex(0xE83A3A), Hex(0xF6922E), Hex(0xF8DE3C),
                                      Hex(0x3CB85A), Hex(0x3A80E8), Hex(0x8A4CD0)};
  for (std::size_t i = 0; i < colours.size(); ++i)
    DrawStep(canvas, 3.0 + static_cast<double>(i) * 3, 4, 3, 16, colours[i]);
  Frame(canvas);
}

void DrawThreeMaps(Canvas& canvas) {
  const auto card = [&](double x, double y, const std::array<Colour, 2>& colours) {
    DrawStep(canvas, x, y, 6, 10, colours[0]);
    DrawStep(canvas, x + 6, y, 6, 10, colours[1]);
    canvas.Rectangle(x, y, 12, 10);
    canvas.Stroke(Grey.dark, 1);
  };
  card(1.5, 2.5, {Hex(0x000000), Hex(0xFFFFFF)});
  card(5.5, 7.5, {Hex(0x606060), Hex(0xB8B8B8)});
  card(9.5, 12.5, {Hex(0xE24B43), Hex(0x3F8BDB)});
}

void DrawNetwork(Canvas& canvas) {
  canvas.Circle(12, 12, 9.5);
  Body(canvas, {Hex(0xB8ECFF), Hex(0x2F93C8), Teal.dark}, 2, 22);
  canvas.Within([&] {
    canvas.Circle(12, 12, 9.5);
    canvas.Clip();
    canvas.Ellipse(12, 12, 4.5, 9.5);
    canvas.Line(12, 2, 12, 22);
    canvas.Line(2, 12, 22, 12);
    canvas.Ellipse(12, 0.5, 11, 6.5);
    canvas.Ellipse(12, 23.5, 11, 6.5);
    canvas.Stroke(Hex(0xFFFFFF, 0.85), 1);
  });
}

void DrawRuns(Canvas& canvas) {
  const std::array<std::array<double, 2>, 5> runs{{{8, 6}, {14, 4}, {4, 11}, {11, 5}, {17, 2}}};
  const std::array<Tones, 5> tones{Blue, Green, Amber, Violet, Red};
  for (std::size_t i = 0; i < runs.size(); ++i) {
    const double y = 2.5 + static_cast<double>(i) * 4, first = runs[i][0], second = runs[i][1];
    canvas.Rectangle(2.5, y, first, 3);
    canvas.FillAndStroke(tones[i].base, tones[i].dark, 1);
    canvas.Rectangle(2.5 + first, y, second, 3);
    canvas.FillAndStroke(tones[i].light, tones[i].dark, 1);
  }
}

void DrawShapes(Canvas& canvas) {
  canvas.Rectangle(2.5, 9.5, 11, 11);
  Body(canvas, Blue, 6, 22);
  canvas.Circle(15.5, 8.5, 6);
  Body(canvas, Amber, 2, 16);
  canvas.Polygon({{15.5, 11.5}, {22.5, 21.5}, {9.5, 21.5}});
  Body(canvas, Violet, 11, 22);
}

}  // namespace lumidex
