#pragma once
// The shapes that records of both kinds draw, in logical units: with the selected pen and brush, or into the
// path of an open bracket.

#include <functional>
#include <span>

#include "pictures/metafile/device_context.h"
#include "pictures/metafile/path_bracket.h"

namespace lumidex::metafile {

class Shapes {
 public:
  Shapes(DeviceContext& context, PathBracket& bracket) : context_(context), bracket_(bracket) {}

  void MoveTo(Point to);
  void LineTo(Point to);
  void Polyline(std::span<const Point> points);
  void PolylineTo(std::span<const Point> points);
  void Polygon(std::span<const Point> points);
  // One shape of several outlines, `counts` points each.
  void PolyPolygon(std::span<const Point> points, std::span<const std::uint32_t> counts);
  // The same as lines.
  void PolyPolyline(std::span<const Point> points, std::span<const std::uint32_t> counts);
  // The first point is the start, each further three a curve.
  void Curves(std::span<const Point> points);
  void CurvesTo(std::span<const Point> points);
  void Rectangle(const Box& box);
  void RoundRectangle(const Box& box, Point corner);
  void Ellipse(const Box& box);
  enum class ArcKind { Open, Chord, Pie, Continued };
  void Arc(const Box& box, Point start, Point end, ArcKind kind);
  // An arc of a circle from a line to its start; degrees, counterclockwise.
  void AngleArc(Point centre, double radius, double startAngle, double sweepAngle);
  // Any path, filled too when `filled`. In a bracket, one that `continues` starts where the bracket's path
  // ends.
  void Draw(const Path& logical, bool filled, bool continues = false);

 private:
  // Appends a shape to the path, within the box it is given; the map takes logical units to those of the box.
  using AddToPath = std::function<void(Path&, const Box&, const Matrix&)>;
  void DrawInBox(const Box& box, bool filled, const AddToPath& add, bool continues = false);
  void DrawUpright(const Box& box, const Matrix& map, bool filled, const AddToPath& add, bool continues);
  void DrawOnSheet(const Path& path, bool filled, bool continues);

  DeviceContext& context_;
  PathBracket& bracket_;
};

}  // namespace lumidex::metafile
