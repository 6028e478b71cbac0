#include "pictures/metafile/shapes.h"

#include <algorithm>
#include <numbers>

#include "pictures/metafile/pen_and_brush.h"

namespace lumidex::metafile {

void Shapes::DrawOnSheet(const Path& path, bool filled, bool continues) {
  if (bracket_.IsOpen()) return bracket_.Add(path, continues);
  if (filled) FillPath(context_, path);
  StrokePath(context_, path);
}

void Shapes::Draw(const Path& logical, bool filled, bool continues) {
  if (!context_.AffordPoints(logical.PointCount())) return;
  DrawOnSheet(logical.Transformed(context_.LogicalToSheet()), filled, continues);
}

void Shapes::DrawInBox(const Box& box, bool filled, const AddToPath& add, bool continues) {
  const Matrix map = context_.LogicalToSheet();
  // Upright boxes are worked out on the sheet, where it is known what one device pixel is.
  if (map.KeepsAxes()) return DrawUpright(box, map, filled, add, continues);
  // The shape is made where boxes are upright, in logical units.
  Path path;
  add(path, box.Normalised(), {});
  DrawOnSheet(path.Transformed(map), filled, continues);
}

void Shapes::DrawUpright(const Box& box, const Matrix& map, bool filled, const AddToPath& add,
                         bool continues) {
  const Device& device = context_.GetDevice();
  const Point from = map.Apply({box.left, box.top}), to = map.Apply({box.right, box.bottom});
  Box whole = Box{from.x, from.y, to.x, to.y}.Normalised();
  Box frame = whole;
  const double acrossUnit = device.toSheet.HorizontalScale(), downUnit = device.toSheet.VerticalScale();
  if (device.boxesIncludeEdge) {
    whole.right += acrossUnit;
    whole.bottom += downUnit;
  } else {
    frame.right = std::max(frame.left, frame.right - acrossUnit);
    frame.bottom = std::max(frame.top, frame.bottom - downUnit);
  }
  if ((context_.State().pen.style & pen_style::dashMask) == pen_style::insideFrame) {
    const StrokeStyle style = StyleOfPen(context_);
    const double inset = std::min({style.width * style.pen.MeanScale(), frame.Width(), frame.Height()}) / 2;
    if (inset > 0.5) frame = frame.Grown(-inset);
  }
  Path path;
  add(path, frame, map);
  path = path.Transformed({});
  if (bracket_.IsOpen()) return bracket_.Add(path, continues);
  if (filled) {
    Path area;
    add(area, whole, map);
    FillPath(context_, area.Transformed({}));
  }
  StrokePath(context_, path);
}

void Shapes::MoveTo(Point to) {
  context_.State().current = to;
  if (bracket_.IsOpen()) bracket_.MoveTo(context_.LogicalToSheet().Apply(to));
}

void Shapes::LineTo(Point to) {
  const Point points[] = {to};
  PolylineTo(points);
}

void Shapes::Polyline(std::span<const Point> points) {
  Path path;
  path.AddPolyline(points, false);
  Draw(path, false);
}

void Shapes::PolylineTo(std::span<const Point> points) {
  if (points.empty()) return;
  Path path;
  path.MoveTo(context_.State().current);
  for (const Point point : points) path.LineTo(point);
  context_.State().current = points.back();
  Draw(path, false, true);
}

void Shapes::Polygon(std::span<const Point> points) {
  Path path;
  path.AddPolyline(points, true);
  Draw(path, true);
}

namespace {

Path OutlinesOf(std::span<const Point> points, std::span<const std::uint32_t> counts, bool closed) {
  Path path;
  for (const std::uint32_t count : counts) {
    if (count > points.size()) break;
    path.AddPolyline(points.first(count), closed);
    points = points.subspan(count);
  }
  return path;
}

}  // namespace

void Shapes::PolyPolygon(std::span<const Point> points, std::span<const std::uint32_t> counts) {
  Draw(OutlinesOf(points, counts, true), true);
}

void Shapes::PolyPolyline(std::span<const Point> points, std::span<const std::uint32_t> counts) {
  Draw(OutlinesOf(points, counts, false), false);
}

void Shapes::Curves(std::span<const Point> points) {
  if (points.empty()) return;
  Path path;
  path.MoveTo(points.front());
  for (std::size_t i = 1; i + 3 <= points.size(); i += 3)
    path.CurveTo(points[i], points[i + 1], points[i + 2]);
  Draw(path, false);
}

void Shapes::CurvesTo(std::span<const Point> points) {
  Path path;
  path.MoveTo(context_.State().current);
  for (std::size_t i = 0; i + 3 <= points.size(); i += 3) {
    path.CurveTo(points[i], points[i + 1], points[i + 2]);
    context_.State().current = points[i + 2];
  }
  Draw(path, false, true);
}

void Shapes::Rectangle(const Box& box) {
  DrawInBox(box, true, [](Path& path, const Box& place, const Matrix&) { path.AddBox(place); });
}

void Shapes::RoundRectangle(const Box& box, Point corner) {
  DrawInBox(box, true, [&](Path& path, const Box& place, const Matrix& map) {
    path.AddRoundBox(place, corner.x * map.xx, corner.y * map.yy);
  });
}

void Shapes::Ellipse(const Box& box) {
  DrawInBox(box, true, [](Path& path, const Box& place, const Matrix&) { path.AddEllipse(place); });
}

void Shapes::Arc(const Box& box, Point start, Point end, ArcKind kind) {
  const Matrix whole = context_.LogicalToSheet();
  const bool mirrored = !whole.KeepsAxes() && whole.Determinant() < 0;
  const bool filled = kind == ArcKind::Chord || kind == ArcKind::Pie;
  const bool continues = kind == ArcKind::Continued;
  const double fullTurn = 2 * std::numbers::pi;
  const AddToPath add = [&](Path& path, const Box& place, const Matrix& map) {
    const Point centre{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    const double radiusX = place.Width() / 2, radiusY = place.Height() / 2;
    if (!(radiusX > 0 && radiusY > 0)) return;
    const auto angle = [&](Point towards) {
      const Point p = map.Apply(towards);
      return std::atan2((p.y - centre.y) / radiusY, (p.x - centre.x) / radiusX);
    };
    const double from = angle(start);
    double sweep = angle(end) - from;
    // With y downwards, growing angles turn clockwise.
    if (context_.State().clockwiseArcs != mirrored) {
      if (sweep <= 1e-9) sweep += fullTurn;
    } else if (sweep >= -1e-9) {
      sweep -= fullTurn;
    }
    if (kind == ArcKind::Pie) path.MoveTo(centre);
    if (continues) path.MoveTo(map.Apply(context_.State().current));
    path.AddArc(place, from, sweep, continues || kind == ArcKind::Pie);
    if (filled) path.Close();
  };
  DrawInBox(box, filled, add, continues);
  if (continues) context_.State().current = end;
}

void Shapes::AngleArc(Point centre, double radius, double startAngle, double sweepAngle) {
  const double toRadians = std::numbers::pi / 180;
  const double away = std::abs(radius);
  Path path;
  path.MoveTo(context_.State().current);
  path.AddArc({centre.x - away, centre.y - away, centre.x + away, centre.y + away}, -startAngle * toRadians,
              -std::clamp(sweepAngle, -360.0, 360.0) * toRadians, true);
  if (const auto last = path.LastPoint()) context_.State().current = *last;
  Draw(path, false, true);
}

}  // namespace lumidex::metafile
