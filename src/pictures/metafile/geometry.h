#pragma once
// Points, boxes and affine maps in which metafiles are drawn; all in double precision, y downwards on the
// device.

#include <algorithm>
#include <cmath>

namespace lumidex::metafile {

struct Point {
  double x = 0;
  double y = 0;
};

struct Box {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;

  double Width() const { return right - left; }
  double Height() const { return bottom - top; }
  double Area() const { return IsEmpty() ? 0 : Width() * Height(); }
  bool IsEmpty() const { return !(left < right && top < bottom); }
  Box Normalised() const {
    return {std::min(left, right), std::min(top, bottom), std::max(left, right), std::max(top, bottom)};
  }
  // What lies in both; where nothing does, a box without extent, never one turned inside out.
  Box Intersected(const Box& other) const {
    const double fromX = std::max(left, other.left), fromY = std::max(top, other.top);
    return {fromX, fromY, std::max(fromX, std::min(right, other.right)),
            std::max(fromY, std::min(bottom, other.bottom))};
  }
  Box Grown(double by) const { return {left - by, top - by, right + by, bottom + by}; }
  Box GrownToWhole() const {
    return {std::floor(left), std::floor(top), std::ceil(right), std::ceil(bottom)};
  }
  Box Rounded() const {
    return {std::floor(left + 0.5), std::floor(top + 0.5), std::floor(right + 0.5), std::floor(bottom + 0.5)};
  }
};

// x' = xx * x + xy * y + x0, y' = yx * x + yy * y + y0.
struct Matrix {
  double xx = 1;
  double yx = 0;
  double xy = 0;
  double yy = 1;
  double x0 = 0;
  double y0 = 0;

  Point Apply(Point point) const {
    return {xx * point.x + xy * point.y + x0, yx * point.x + yy * point.y + y0};
  }
  // The map that applies this one first and `next` after it.
  Matrix Then(const Matrix& next) const {
    return {next.xx * xx + next.xy * yx,           next.yx * xx + next.yy * yx,
            next.xx * xy + next.xy * yy,           next.yx * xy + next.yy * yy,
            next.xx * x0 + next.xy * y0 + next.x0, next.yx * x0 + next.yy * y0 + next.y0};
  }
  double Determinant() const { return xx * yy - xy * yx; }
  // False for maps that lose a dimension or hold infinities, on which a renderer would choke.
  bool IsUsable() const {
    const double size = std::abs(xx) + std::abs(xy) + std::abs(yx) + std::abs(yy);
    return std::isfinite(size) && std::isfinite(x0) && std::isfinite(y0) && size < 1e9 &&
           std::abs(Determinant()) > 1e-12;
  }
  double HorizontalScale() const { return std::hypot(xx, yx); }
  double VerticalScale() const { return std::hypot(xy, yy); }
  // How much longer a length becomes, on average over all directions.
  double MeanScale() const { return std::sqrt(std::abs(Determinant())); }
  bool KeepsAxes() const { return std::abs(xy) < 1e-9 && std::abs(yx) < 1e-9; }
};

}  // namespace lumidex::metafile
