#include "artwork/windows.h"

#include <cmath>
#include <numbers>

#include "artwork/style.h"

namespace lumidex {
namespace {

void DrawFolder(Canvas& canvas) {
  FolderBack(canvas, 5.5, 21.5);
  canvas.RoundedRectangle(2.5, 9.5, 19, 11, 1);
  Body(canvas, Amber, 9, 22);
}

}  // namespace

void DrawDesktopFolder(Canvas& canvas) {
  canvas.RoundedRectangle(1.5, 3.5, 21, 14, 1.5);
  Body(canvas, Grey, 3, 18);
  canvas.Rectangle(3, 5, 18, 11);
  canvas.Fill(Paint::Vertical(5, 16, Hex(0x5FB0F0), Hex(0x2A6AB8)));
  for (const double y : {6.0, 10.0}) canvas.Rectangle(5, y, 2, 2);
  canvas.Fill(Paper.light);
  canvas.Rectangle(3, 14, 18, 2);
  canvas.Fill(Hex(0x1F4F8F));
  canvas.Polygon({{10.5, 17.5}, {13.5, 17.5}, {14.5, 20.5}, {9.5, 20.5}});
  canvas.FillAndStroke(Grey.base, Grey.dark, 1);
  canvas.Line(7, 20.5, 17, 20.5);
  canvas.Stroke(Grey.dark, 1);
}

void DrawDocumentsFolder(Canvas& canvas) {
  FolderBack(canvas, 6.5, 21.5);
  canvas.RoundedRectangle(6.5, 2.5, 11, 14, 0.8);
  Body(canvas, Paper, 2, 16);
  for (const double y : {5.0, 7.0, 9.0}) canvas.Rectangle(9, y, 6, 1);
  canvas.Fill(Blue.base);
  canvas.RoundedRectangle(2.5, 11.5, 19, 9, 1);
  Body(canvas, Amber, 11, 22);
}

void DrawFavouritesFolder(Canvas& canvas) {
  DrawFolder(canvas);
  for (int i = 0; i < 10; ++i) {
    const double radius = i % 2 == 0 ? 6.8 : 3, angle = std::numbers::pi * (i / 5.0 - 0.5);
    canvas.LineTo(15.5 + radius * std::cos(angle), 15.5 + radius * std::sin(angle));
  }
  canvas.Close();
  canvas.FillAndStroke(Paint::Vertical(9, 22, Hex(0xFFB0A4), Red.base), Red.dark, 1);
}

void DrawEmptyThumbnail(Canvas& canvas) {
  canvas.RoundedRectangle(2.5, 2.5, 19, 19, 2);
  canvas.Stroke(Hex(0x8492A8, 0.5), 0.5);
  canvas.Layer(0.28, [&] { MiniPicture(canvas, 7, 8, 10, 8); });
}

void DrawErrorThumbnail(Canvas& canvas) {
  MiniPicture(canvas, 3.5, 4.5, 17, 14);
  canvas.Circle(17, 17, 5);
  Body(canvas, Red, 12, 22);
  canvas.Rectangle(16, 14, 2, 4);
  canvas.Rectangle(16, 19, 2, 1.6);
  canvas.Fill(Paper.light);
}

}  // namespace lumidex
