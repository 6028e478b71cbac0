#include "artwork/style.h"

#include <cmath>

namespace lumidex {

void Body(Canvas& canvas, const Tones& tones, double top, double bottom) {
  canvas.FillAndStroke(Paint::Vertical(top, bottom, tones.light, tones.base), tones.dark, 1);
}

void FolderBack(Canvas& canvas, double top, double right) {
  canvas.Polygon({{2.5, 19.5}, {2.5, top}, {9, top}, {11, top + 2}, {right, top + 2}, {right, 19.5}});
  canvas.FillAndStroke(Amber.base, Amber.dark, 1);
}

void MiniLandscape(Canvas& canvas, double x, double y, double width, double height) {
  canvas.Within([&] {
    canvas.Rectangle(x, y, width, height);
    canvas.Clip();
    canvas.FillAll(Paint::Vertical(y, y + height, Hex(0x6DB7F2), Hex(0xDDF1FF)));
    canvas.Circle(x + width * 0.72, y + height * 0.3, height * 0.17);
    canvas.Fill(Hex(0xFFD34D));
    canvas.Polygon({{x + width * 0.3, y + height * 0.36},
                    {x + width * 0.72, y + height},
                    {x - width * 0.12, y + height}});
    canvas.Fill(Hex(0x4FA35E));
    canvas.Polygon({{x + width * 0.72, y + height * 0.56},
                    {x + width * 1.12, y + height},
                    {x + width * 0.4, y + height}});
    canvas.Fill(Hex(0x2F7D4B));
  });
}

void MiniPicture(Canvas& canvas, double x, double y, double width, double height) {
  canvas.RoundedRectangle(x, y, width, height, 1);
  canvas.Fill(Paper.light);
  MiniLandscape(canvas, x + 1.5, y + 1.5, width - 3, height - 3);
  canvas.RoundedRectangle(x, y, width, height, 1);
  canvas.Stroke(Paper.dark, 1);
}

void TraceArrow(Canvas& canvas, Point from, Point to, double half, double headLength, double headHalf) {
  const double length = std::hypot(to.x - from.x, to.y - from.y);
  const Point along{(to.x - from.x) / length, (to.y - from.y) / length};
  // A point `back` units behind the tip and `aside` units to the right of the shaft.
  const auto at = [&](double back, double aside) -> Point {
    return {to.x - along.x * back - along.y * aside, to.y - along.y * back + along.x * aside};
  };
  canvas.Polygon({at(0, 0), at(headLength, headHalf), at(headLength, half), at(length, half),
                  at(length, -half), at(headLength, -half), at(headLength, -headHalf)});
}

}  // namespace lumidex
