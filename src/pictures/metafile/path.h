#pragma once
// Outlines made of lines and cubic curves, and the shapes that metafile records know.

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "pictures/metafile/geometry.h"

namespace lumidex::metafile {

class Path {
 public:
  enum class Verb : std::uint8_t { Move, Line, Curve, Close };

  void MoveTo(Point point);
  void LineTo(Point point);
  void CurveTo(Point control1, Point control2, Point end);
  void Close();

  void AddPolyline(std::span<const Point> points, bool closed);
  void AddBox(const Box& box);
  static Path OfBox(const Box& box) {
    Path path;
    path.AddBox(box);
    return path;
  }
  void AddEllipse(const Box& box);
  // `cornerWidth` and `cornerHeight` are the axes of the corner ellipses.
  void AddRoundBox(const Box& box, double cornerWidth, double cornerHeight);
  // Part of the ellipse in `box`, angles in radians from the right going towards growing y. Begins with a
  // line to its start when `connect` is set, else with a move.
  void AddArc(const Box& box, double startAngle, double sweep, bool connect);
  // With `joined`, what follows goes on from the last point: the first move of `other` is left out.
  void Append(const Path& other, bool joined = false);

  bool IsEmpty() const { return verbs_.empty(); }
  std::span<const Verb> Verbs() const { return verbs_; }
  // One point for Move and Line, three for Curve, none for Close, in the order of the verbs.
  std::span<const Point> Points() const { return points_; }
  std::size_t PointCount() const { return points_.size(); }
  std::optional<Point> LastPoint() const;

  Path Transformed(const Matrix& matrix) const;
  // Level and upright lines moved to the middle of a pixel, where a thin one shows sharp.
  Path WithCrispLines() const;
  // The box of all points, those that guide curves included.
  Box Bounds() const;
  // The rows that all edges together cross between `top` and `bottom`, which is what filling costs.
  double EdgeRows(double top, double bottom) const;
  double EdgeColumns(double left, double right) const;
  // The length of all edges.
  double Length() const;
  // The box when this is just one upright rectangle.
  std::optional<Box> AsBox() const;

 private:
  std::vector<Verb> verbs_;
  std::vector<Point> points_;
};

}  // namespace lumidex::metafile
