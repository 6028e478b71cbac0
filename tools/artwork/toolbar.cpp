#include "artwork/toolbar.h"

#include <array>
#include <cmath>
#include <numbers>

#include "artwork/style.h"

namespace lumidex {
namespace {

void DrawDirectory(Canvas& canvas) {
  FolderBack(canvas, 5.5, 19.5);
  MiniPicture(canvas, 6.5, 3.5, 12, 10);
  canvas.Polygon({{5.5, 11.5}, {22.5, 11.5}, {19.5, 20.5}, {2.5, 20.5}});
  Body(canvas, Amber, 11, 22);
}

// A sheet with a list of pictures on it.
void DrawSheet(Canvas& canvas, double x, double y) {
  canvas.RoundedRectangle(x, y, 13, 17, 1.2);
  Body(canvas, Paper, y, y + 17);
  for (int row = 0; row < 3; ++row) {
    const double top = y + 3 + row * 4.5;
    canvas.Rectangle(x + 2.5, top - 0.5, 3, 3);
    canvas.Fill(row == 0 ? Blue.base : row == 1 ? Green.base : Amber.base);
    canvas.Rectangle(x + 6.5, top + 0.5, 4, 1);
    canvas.Fill(Grey.dark);
  }
}

void DrawLoad(Canvas& canvas) {
  DrawSheet(canvas, 8.5, 3.5);
  TraceArrow(canvas, {1.5, 15.5}, {12.5, 15.5}, 2, 5.5, 5);
  Body(canvas, Green, 10, 21);
}

void DrawSave(Canvas& canvas) {
  canvas.MoveTo(4.5, 3.5);
  canvas.LineTo(18, 3.5);
  canvas.LineTo(20.5, 6);
  canvas.LineTo(20.5, 19.5);
  canvas.CurveTo({20.5, 20}, {20, 20.5}, {19.5, 20.5});
  canvas.LineTo(4.5, 20.5);
  canvas.CurveTo({4, 20.5}, {3.5, 20}, {3.5, 19.5});
  canvas.LineTo(3.5, 4.5);
  canvas.CurveTo({3.5, 4}, {4, 3.5}, {4.5, 3.5});
  canvas.Close();
  Body(canvas, Blue, -6, 22);
  canvas.Rectangle(8, 4, 8, 5);
  canvas.Fill(Paper.light);
  canvas.Rectangle(13, 5, 2, 3);
  canvas.Fill(Blue.dark);
  canvas.Rectangle(6, 12, 12, 8);
  canvas.Fill(Paper.light);
  for (const double y : {14.0, 16.0, 18.0}) canvas.Rectangle(8, y, 8, 1);
  canvas.Fill(Grey.base);
}

void DrawExit(Canvas& canvas) {
  canvas.RoundedRectangle(3.5, 2.5, 11, 19, 1);
  canvas.FillAndStroke(Hex(0x4A566B), Grey.dark, 1);
  canvas.Polygon({{3.5, 2.5}, {10.5, 5.5}, {10.5, 22}, {3.5, 21.5}});
  Body(canvas, Amber, -4, 24);
  canvas.Circle(8.5, 13.5, 1);
  canvas.Fill(Amber.dark);
  TraceArrow(canvas, {11.5, 12.5}, {22.5, 12.5}, 2, 5.5, 5);
  Body(canvas, Red, 7, 18);
}

void DrawCopy(Canvas& canvas) {
  MiniPicture(canvas, 2.5, 2.5, 13, 12);
  canvas.RoundedRectangle(7, 8, 16, 15, 1.5);
  canvas.Fill(Hex(0x20304A, 0.25));
  MiniPicture(canvas, 7.5, 8.5, 14, 13);
}

void DrawMonitor(Canvas& canvas) {
  canvas.Polygon({{9.5, 17.5}, {14.5, 17.5}, {15.5, 20.5}, {8.5, 20.5}});
  canvas.FillAndStroke(Grey.base, Grey.dark, 1);
  canvas.RoundedRectangle(6.5, 20.5, 11, 1.5, 0.7);
  canvas.FillAndStroke(Grey.light, Grey.dark, 1);
  canvas.RoundedRectangle(1.5, 2.5, 21, 15, 1.5);
  Body(canvas, Grey, 2, 18);
  canvas.Rectangle(3, 4, 18, 12);
  canvas.Fill(Hex(0x33567F));
}

void DrawWallpaperCentred(Canvas& canvas) {
  DrawMonitor(canvas);
  canvas.Rectangle(7, 6, 10, 8);
  canvas.Fill(Paper.light);
  MiniLandscape(canvas, 8, 7, 8, 6);
}

// A landscape under a veil, for white arrows to stand out against.
void DrawVeiledLandscape(Canvas& canvas, double x, double y, double width, double height) {
  MiniLandscape(canvas, x, y, width, height);
  canvas.Rectangle(x, y, width, height);
  canvas.Fill(Hex(0x16305A, 0.55));
}

void DrawWallpaperStretched(Canvas& canvas) {
  DrawMonitor(canvas);
  DrawVeiledLandscape(canvas, 3, 4, 18, 12);
  for (const double side : {-1.0, 1.0}) {
    TraceArrow(canvas, {12 + side * 1.5, 10}, {12 + side * 8, 10}, 1, 4, 4);
    canvas.Fill(Paper.light);
  }
}

void DrawWallpaperTiled(Canvas& canvas) {
  DrawMonitor(canvas);
  canvas.Rectangle(3, 4, 18, 12);
  canvas.Fill(Paper.light);
  for (const double y : {4.0, 10.5})
    for (const double x : {3.0, 9.5, 16.0}) MiniLandscape(canvas, x, y, x == 16 ? 5 : 5.5, 5.5);
}

void DrawWallpaperRemoved(Canvas& canvas) {
  DrawMonitor(canvas);
  canvas.Within([&] {
    canvas.Translate(16.5, 15.5);
    canvas.Circle(0, 0, 6);
    Body(canvas, Red, -6, 6);
    canvas.Line(-2.5, -2.5, 2.5, 2.5);
    canvas.Line(-2.5, 2.5, 2.5, -2.5);
    canvas.Stroke(Paper.light, 2);
  });
}

void DrawPrevious(Canvas& canvas) {
  TraceArrow(canvas, {21.5, 12}, {2.5, 12}, 3.5, 10, 9);
  Body(canvas, Blue, 2, 20);
}

void DrawNext(Canvas& canvas) {
  TraceArrow(canvas, {2.5, 12}, {21.5, 12}, 3.5, 10, 9);
  Body(canvas, Blue, 2, 20);
}

// Three lights that add up to white where all meet.
void DrawColour(Canvas& canvas) {
  const std::array<Point, 3> centres{{{12, 8}, {8, 15}, {16, 15}}};
  const std::array<Colour, 3> lights{Hex(0xF03A3A), Hex(0x2FBF4F), Hex(0x3A6CF0)};
  const double radius = 5.5;
  canvas.Within([&] {
    for (std::size_t i = 0; i < 3; ++i) {
      canvas.Circle(centres[i].x, centres[i].y, radius);
      canvas.Fill(lights[i]);
    }
    const auto both = [&](std::size_t first, std::size_t second, Colour colour) {
      canvas.Within([&] {
        canvas.Circle(centres[first].x, centres[first].y, radius);
        canvas.Clip();
        canvas.Circle(centres[second].x, centres[second].y, radius);
        canvas.Fill(colour);
      });
    };
    both(0, 1, Hex(0xFFE23A));
    both(0, 2, Hex(0xF04AE0));
    both(1, 2, Hex(0x3AE0F0));
    canvas.Within([&] {
      for (const Point& centre : {centres[0], centres[1]}) {
        canvas.Circle(centre.x, centre.y, radius);
        canvas.Clip();
      }
      canvas.Circle(centres[2].x, centres[2].y, radius);
      canvas.Fill(Hex(0xFFFFFF));
    });
  });
  for (const Point& centre : centres) {
    canvas.Circle(centre.x, centre.y, radius);
    canvas.Stroke(Hex(0x46546C), 1);
  }
}

void DrawBrightness(Canvas& canvas) {
  for (int i = 0; i < 8; ++i) {
    canvas.Within([&] {
      canvas.Translate(12, 12);
      canvas.Rotate(i * 45);
      canvas.RoundedRectangle(7.6, -1, 3.4, 2, 1);
      canvas.FillAndStroke(Amber.base, Amber.dark, 0.8);
    });
  }
  canvas.Circle(12, 12, 5.5);
  canvas.FillAndStroke(Paint::Vertical(6, 18, Hex(0xFFF0B0), Amber.base), Amber.dark, 1);
  canvas.Arc(12, 12, 5, 90, 270);
  canvas.Close();
  canvas.Fill(Hex(0x5A4630));
}

void DrawRotate(Canvas& canvas) {
  MiniPicture(canvas, 2.5, 10.5, 13, 11);
  const auto trace = [&] { canvas.Arc(12, 11.5, 7.5, 200, 330); };
  trace();
  canvas.Stroke(Green.dark, 4.4);
  trace();
  canvas.Stroke(Paint::Vertical(3, 12, Green.light, Green.base), 2.4);
  canvas.Polygon({{14.5, 8.5}, {22.5, 8.5}, {20, 15.5}});
  canvas.Polygon({{14.5, 9.5}, {23, 7.5}, {20.5, 15.5}});
  Body(canvas, Green, 6, 15);
}

void DrawLens(Canvas& canvas) {
  canvas.Line(15.5, 15.5, 20.5, 20.5);
  canvas.Stroke(Amber.dark, 5);
  canvas.Line(16, 16, 20.5, 20.5);
  canvas.Stroke(Amber.base, 3);
  canvas.Circle(10, 10, 7.5);
  canvas.FillAndStroke(
      Paint::Radial({8, 7}, 13, {{0, Hex(0xFFFFFF)}, {0.6, Hex(0xCBE5FB)}, {1, Hex(0x86BCEE)}}), Grey.dark,
      2);
  canvas.Circle(10, 10, 7.5);
  canvas.Stroke(Grey.light, 0.7);
}

void DrawZoomOut(Canvas& canvas) {
  DrawLens(canvas);
  canvas.Rectangle(6, 9, 8, 2);
  canvas.Fill(Red.base);
}

void DrawZoomIn(Canvas& canvas) {
  DrawLens(canvas);
  canvas.Rectangle(6, 9, 8, 2);
  canvas.Rectangle(9, 6, 2, 8);
  canvas.Fill(Hex(0x2E8E48));
}

void TraceGear(Canvas& canvas, Point centre, double radius, int teeth) {
  for (int i = 0; i < 4 * teeth; ++i) {
    const double angle = std::numbers::pi * 2 * (i - 0.5) / (4 * teeth);
    const double reach = i % 4 < 2 ? radius : radius * 0.76;
    canvas.LineTo(centre.x + reach * std::cos(angle), centre.y + reach * std::sin(angle));
  }
  canvas.Close();
}

void DrawProperties(Canvas& canvas) {
  canvas.RoundedRectangle(2.5, 2.5, 14, 18, 1.2);
  Body(canvas, Paper, 2, 21);
  for (int row = 0; row < 3; ++row) {
    const double y = 5 + row * 5;
    canvas.Rectangle(5, y, 3, 3);
    canvas.Fill(Blue.base);
    canvas.Rectangle(9, y + 1, 5, 1);
    canvas.Fill(Grey.dark);
  }
  TraceGear(canvas, {16, 16}, 6.6, 8);
  Body(canvas, Grey, 9, 23);
  canvas.Circle(16, 16, 2);
  canvas.FillAndStroke(Paper.light, Grey.dark, 1);
}

void DrawFullScreen(Canvas& canvas) {
  canvas.RoundedRectangle(2.5, 3.5, 19, 17, 1.5);
  Body(canvas, Grey, 3, 21);
  DrawVeiledLandscape(canvas, 4, 5, 16, 14);
  for (const double x : {-1.0, 1.0})
    for (const double y : {-1.0, 1.0})
      canvas.Polygon({{12 + x * 7, 12 + y * 6}, {12 + x * 3, 12 + y * 6}, {12 + x * 7, 12 + y * 2}});
  canvas.Fill(Paper.light);
}

void DrawAbout(Canvas& canvas) {
  canvas.Circle(12, 12, 9.5);
  Body(canvas, Blue, -4, 22);
  canvas.Circle(12, 7, 1.75);
  canvas.Fill(Paper.light);
  canvas.Polygon({{9, 10},
                  {13.5, 10},
                  {13.5, 16},
                  {15, 16},
                  {15, 18},
                  {9, 18},
                  {9, 16},
                  {10.5, 16},
                  {10.5, 12},
                  {9, 12}});
  canvas.Fill(Paper.light);
}

constexpr std::array<ToolbarPicture, 19> Pictures{{{"dir1", DrawDirectory},
                                                   {"load1", DrawLoad},
                                                   {"save1", DrawSave},
                                                   {"exit1", DrawExit},
                                                   {"copy1", DrawCopy},
                                                   {"wpaperc", DrawWallpaperCentred},
                                                   {"wpapers", DrawWallpaperStretched},
                                                   {"wpapert", DrawWallpaperTiled},
                                                   {"wpaperr", DrawWallpaperRemoved},
                                                   {"prev1", DrawPrevious},
                                                   {"next1", DrawNext},
                                                   {"color1", DrawColour},
                                                   {"bright1", DrawBrightness},
                                                   {"rotate1", DrawRotate},
                                                   {"zoomdec1", DrawZoomOut},
                                                   {"zoominc1", DrawZoomIn},
                                                   {"filetype1", DrawProperties},
                                                   {"zoom1", DrawFullScreen},
                                                   {"help1", DrawAbout}}};

}  // namespace

std::span<const ToolbarPicture> ToolbarPictures() {
  return Pictures;
}

}  // namespace lumidex
