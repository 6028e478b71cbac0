#include <array>
#include <utility>

#include "artwork/motifs.h"
#include "artwork/style.h"

namespace lumidex {

void DrawEasel(Canvas& canvas) {
  canvas.Line(7.5, 15, 4.5, 22);
  canvas.Line(16.5, 15, 19.5, 22);
  canvas.Line(12, 1.5, 12, 20);
  canvas.Stroke(Hex(0x8A5A2A), 1.6);
  MiniPicture(canvas, 3.5, 3.5, 17, 11);
  canvas.RoundedRectangle(2.5, 14.5, 19, 2.5, 0.8);
  Body(canvas, Amber, 14, 18);
}

void DrawScissors(Canvas& canvas) {
  for (const double side : {-1.0, 1.0}) {
    canvas.Polygon({{12 - side * 1.6, 14}, {12 + side * 1.2, 13}, {12 + side * 6, 2}, {12 + side * 4.6, 2}});
    canvas.FillAndStroke(Grey.light, Grey.dark, 1);
    canvas.Circle(12 - side * 4.5, 18.5, 3);
    canvas.Stroke(Red.dark, 3.2);
    canvas.Circle(12 - side * 4.5, 18.5, 3);
    canvas.Stroke(Red.base, 1.6);
  }
  canvas.Circle(12, 13, 1);
  canvas.Fill(Grey.dark);
}

void DrawPointer(Canvas& canvas) {
  canvas.Polygon({{6.5, 2.5}, {6.5, 18.5}, {10.3, 15}, {12.8, 21}, {15.8, 19.7}, {13.3, 13.9}, {18.5, 13.9}});
  canvas.FillAndStroke(Paper.light, Hex(0x2A3A55), 1.4);
}

void DrawJewel(Canvas& canvas) {
  canvas.Polygon({{6.5, 4.5}, {17.5, 4.5}, {22.5, 10.5}, {12, 21.5}, {1.5, 10.5}});
  Body(canvas, Teal, 2, 22);
  canvas.Polygon({{9, 10.5}, {15, 10.5}, {12, 20.5}});
  canvas.Fill(Hex(0xFFFFFF, 0.45));
  canvas.Polygon({{7, 5}, {12, 5}, {9, 10}, {3, 10}});
  canvas.Fill(Hex(0xFFFFFF, 0.55));
  canvas.Line(2, 10.5, 22, 10.5);
  canvas.Line(9, 10.5, 12, 5);
  canvas.Line(15, 10.5, 12, 5);
  canvas.Line(9, 10.5, 12, 20.5);
  canvas.Line(15, 10.5, 12, 20.5);
  canvas.Stroke(Teal.dark, 0.8);
}

void DrawFilm(Canvas& canvas) {
  canvas.RoundedRectangle(1.5, 4.5, 21, 15, 1);
  canvas.FillAndStroke(Hex(0x35415A), Hex(0x1F2A40), 1);
  for (int i = 0; i < 5; ++i) {
    canvas.Rectangle(3.0 + i * 4, 6, 2, 2);
    canvas.Rectangle(3.0 + i * 4, 16, 2, 2);
  }
  canvas.Fill(Paper.light);
  MiniLandscape(canvas, 3, 9, 8, 6);
  MiniLandscape(canvas, 13, 9, 8, 6);
}

void DrawTelevision(Canvas& canvas) {
  canvas.Line(7.5, 1.5, 12, 6);
  canvas.Line(16.5, 1.5, 12, 6);
  canvas.Stroke(Grey.dark, 1.4);
  canvas.RoundedRectangle(2.5, 6.5, 19, 14, 2);
  Body(canvas, Amber, -2, 24);
  canvas.RoundedRectangle(4, 8, 12, 11, 2);
  canvas.Fill(Hex(0x22324E));
  for (const double y : {10.0, 12.0, 14.0, 16.0}) canvas.Rectangle(5, y, 10, 1);
  canvas.Fill(Hex(0x8CD0FF));
  canvas.Circle(18.5, 10.5, 1.2);
  canvas.Circle(18.5, 14.5, 1.2);
  canvas.Fill(Amber.dark);
}

void DrawFramedPicture(Canvas& canvas) {
  canvas.Line(8, 5, 12, 1.5);
  canvas.Line(16, 5, 12, 1.5);
  canvas.Stroke(Grey.dark, 1);
  canvas.Rectangle(1.5, 4.5, 21, 17);
  Body(canvas, Amber, 2, 24);
  canvas.Rectangle(4, 7, 16, 12);
  canvas.Fill(Paper.light);
  MiniLandscape(canvas, 5, 8, 14, 10);
}

void DrawCamera(Canvas& canvas) {
  canvas.Polygon({{8.5, 6.5}, {9.5, 3.5}, {14.5, 3.5}, {15.5, 6.5}});
  canvas.FillAndStroke(Grey.base, Grey.dark, 1);
  canvas.RoundedRectangle(1.5, 6.5, 21, 14, 2);
  Body(canvas, Grey, 4, 24);
  canvas.Rectangle(2, 10, 20, 7);
  canvas.Fill(Hex(0x46546C));
  canvas.Circle(12, 13.5, 5.5);
  canvas.FillAndStroke(Paper.light, Grey.dark, 1);
  canvas.Circle(12, 13.5, 3.6);
  canvas.Fill(Paint::Radial({11, 12}, 5, {{0, Hex(0xBFE2FF)}, {0.5, Blue.base}, {1, Blue.dark}}));
  canvas.Circle(10.8, 12.2, 1);
  canvas.Fill(Paper.light);
  canvas.Circle(19.5, 8.5, 0.9);
  canvas.Fill(Red.base);
}

void DrawBrush(Canvas& canvas) {
  canvas.Line(20.5, 2.5, 12, 12);
  canvas.Stroke(Hex(0x7A4A1C), 3.6);
  canvas.Line(20.5, 2.5, 12, 12);
  canvas.Stroke(Amber.base, 2);
  canvas.Line(13.2, 10.8, 10.2, 14);
  canvas.Stroke(Grey.dark, 5);
  canvas.Line(13.2, 10.8, 10.2, 14);
  canvas.Stroke(Grey.light, 3);
  canvas.MoveTo(11.6, 15.4);
  canvas.CurveTo({10.5, 20}, {6, 21.5}, {2.5, 21});
  canvas.CurveTo({5, 19.5}, {4.5, 14}, {8.6, 12.8});
  canvas.Close();
  Body(canvas, Red, 12, 22);
}

void DrawComputer(Canvas& canvas) {
  canvas.RoundedRectangle(4.5, 1.5, 15, 18, 1.5);
  Body(canvas, {Hex(0xF6F0E0), Hex(0xD8CCB0), Grey.dark}, 1, 20);
  canvas.RoundedRectangle(6.5, 3.5, 11, 8, 1);
  canvas.FillAndStroke(Hex(0xE8F4E8), Grey.dark, 1);
  for (int row = 0; row < 3; ++row)
    for (int column = 0; column < 4; ++column) canvas.Rectangle(8 + column * 2 + row % 2, 5 + row * 2, 1, 1);
  canvas.Fill(Hex(0x2A3A55));
  canvas.Rectangle(12, 15, 5, 1);
  canvas.Fill(Hex(0x2A3A55));
  canvas.RoundedRectangle(5.5, 19.5, 13, 3, 0.6);
  canvas.FillAndStroke(Hex(0xC8BC9C), Grey.dark, 1);
}

void DrawPencil(Canvas& canvas) {
  canvas.Smooth({{2, 20}, {6, 17.5}, {9, 21}, {13, 18.5}, {17, 21.5}, {22, 19.5}}, false);
  canvas.Stroke(Blue.base, 1.6);
  canvas.Within([&] {
    canvas.Translate(5, 17);
    canvas.Rotate(-45);
    canvas.Polygon({{0, 0}, {4.5, -2.5}, {4.5, 2.5}});
    canvas.FillAndStroke(Hex(0xF6DDB8), Amber.dark, 1);
    canvas.Polygon({{0, 0}, {1.8, -1}, {1.8, 1}});
    canvas.Fill(Hex(0x2A3A55));
    canvas.Rectangle(4.5, -2.5, 11, 5);
    canvas.FillAndStroke(Amber.base, Amber.dark, 1);
    canvas.Rectangle(5, -1, 10, 1.4);
    canvas.Fill(Amber.light);
    canvas.RoundedRectangle(15.5, -2.5, 4, 5, 1);
    canvas.FillAndStroke(Red.base, Red.dark, 1);
  });
}

void DrawPalette(Canvas& canvas) {
  canvas.MoveTo(12, 3.5);
  canvas.CurveTo({19, 3.5}, {22.5, 7.5}, {22.5, 11.5});
  canvas.CurveTo({22.5, 16}, {17.5, 14.5}, {16.5, 16.5});
  canvas.CurveTo({15.8, 18.5}, {17, 21}, {12, 21});
  canvas.CurveTo({5.5, 21}, {1.5, 16.5}, {1.5, 12});
  canvas.CurveTo({1.5, 7}, {6, 3.5}, {12, 3.5});
  canvas.Close();
  Body(canvas, {Hex(0xF2D3A0), Hex(0xD6A05C), Hex(0x7A4A1C)}, 3, 21);
  const std::array<std::pair<Point, Colour>, 5> dabs{{{{6, 9.5}, Red.base},
                                                      {{11, 6.8}, Hex(0xFFE04A)},
                                                      {{16.5, 8}, Green.base},
                                                      {{5.5, 14.5}, Violet.base},
                                                      {{19, 11.8}, Blue.base}}};
  for (const auto& [place, colour] : dabs) {
    canvas.Circle(place.x, place.y, 1.9);
    canvas.Fill(colour);
  }
  canvas.Circle(11.5, 16.5, 2);
  canvas.FillAndStroke(Paper.light, Hex(0x7A4A1C), 1);
}

void DrawPaintPot(Canvas& canvas) {
  canvas.Arc(12, 9, 8, 180, 360);
  canvas.Stroke(Grey.dark, 1.2);
  canvas.MoveTo(3.5, 9);
  canvas.LineTo(5, 20);
  canvas.CurveTo({6, 22.5}, {18, 22.5}, {19, 20});
  canvas.LineTo(20.5, 9);
  canvas.Close();
  Body(canvas, Grey, 6, 24);
  canvas.Ellipse(12, 9, 8.5, 2.6);
  canvas.FillAndStroke(Violet.base, Grey.dark, 1);
  canvas.MoveTo(5, 10.5);
  canvas.CurveTo({5, 15.5}, {9, 16}, {9, 11.5});
  canvas.CurveTo({9, 18.5}, {13, 18.5}, {13, 11.5});
  canvas.LineTo(9, 10);
  canvas.Close();
  canvas.Fill(Violet.base);
}

void DrawSun(Canvas& canvas) {
  for (int i = 0; i < 12; ++i)
    canvas.Within([&] {
      canvas.Translate(12, 12);
      canvas.Rotate(i * 30);
      canvas.Polygon({{7, -1.5}, {11, 0}, {7, 1.5}});
      canvas.Fill(i % 2 == 0 ? Amber.base : Hex(0xE87A2C));
    });
  canvas.Circle(12, 12, 5.5);
  Body(canvas, {Hex(0xFFF2B0), Amber.base, Amber.dark}, 6, 20);
}

void DrawTarget(Canvas& canvas) {
  const std::array<double, 4> radii{10, 7.5, 5, 2.5};
  for (std::size_t i = 0; i < radii.size(); ++i) {
    canvas.Circle(12, 12, radii[i]);
    canvas.Fill(i % 2 == 0 ? Red.base : Paper.light);
  }
  canvas.Circle(12, 12, 10);
  canvas.Stroke(Red.dark, 1);
  canvas.Circle(12, 12, 2.5);
  canvas.Fill(Red.base);
}

void DrawTag(Canvas& canvas) {
  canvas.MoveTo(8.5, 8.5);
  canvas.CurveTo({3, 8}, {0.5, 5}, {3.5, 1.5});
  canvas.Stroke(Grey.dark, 0.9);
  canvas.Within([&] {
    canvas.Translate(13, 13);
    canvas.Rotate(45);
    canvas.Polygon({{-11, 0}, {-7, -5.5}, {10, -5.5}, {10, 5.5}, {-7, 5.5}});
    Body(canvas, Green, -8, 8);
    canvas.Circle(-6, 0, 1.5);
    canvas.FillAndStroke(Paper.light, Green.dark, 0.8);
    for (const double y : {-2.5, 0.0, 2.5}) canvas.Line(-2, y, 7, y);
    canvas.Stroke(Paper.light, 1.1);
  });
}

void DrawPen(Canvas& canvas) {
  canvas.Line(2, 21.5, 22, 21.5);
  canvas.Stroke(Blue.base, 1.4);
  canvas.Within([&] {
    canvas.Translate(4.5, 20.5);
    canvas.Rotate(-50);
    canvas.Rectangle(9.5, -2.5, 12, 5);
    canvas.FillAndStroke(Blue.base, Blue.dark, 1);
    canvas.Rectangle(10, -1.2, 11, 1.4);
    canvas.Fill(Blue.light);
    canvas.MoveTo(0, 0);
    canvas.CurveTo({4, -1.5}, {5, -3.5}, {9.5, -3.5});
    canvas.LineTo(9.5, 3.5);
    canvas.CurveTo({5, 3.5}, {4, 1.5}, {0, 0});
    canvas.Close();
    canvas.FillAndStroke(Paint(Amber.light), Amber.dark, 1);
    canvas.Line(0.5, 0, 6, 0);
    canvas.Stroke(Amber.dark, 0.8);
    canvas.Circle(6.3, 0, 0.9);
    canvas.Fill(Amber.dark);
  });
}

}  // namespace lumidex
