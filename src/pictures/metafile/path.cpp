#include "pictures/metafile/path.h"

#include <numbers>

namespace lumidex::metafile {
namespace {

// The renderer counts in fixed point with 24 bits before the point; far outside the picture nothing shows.
constexpr double farthest = 1e6;

Point Clamped(Point point) {
  const auto clamp = [](double value) {
    return std::isfinite(value) ? std::clamp(value, -farthest, farthest) : 0.0;
  };
  return {clamp(point.x), clamp(point.y)};
}

// How far all edges together reach between two bounds in one direction.
double Extent(std::span<const Point> points, double Point::*coordinate, double least, double most) {
  double sum = 0;
  if (!(least < most)) return sum;
  for (std::size_t i = 1; i < points.size(); ++i)
    sum += std::abs(std::clamp(points[i].*coordinate, least, most) -
                    std::clamp(points[i - 1].*coordinate, least, most));
  return sum;
}

}  // namespace

void Path::MoveTo(Point point) {
  verbs_.push_back(Verb::Move);
  points_.push_back(point);
}

void Path::LineTo(Point point) {
  verbs_.push_back(verbs_.empty() ? Verb::Move : Verb::Line);
  points_.push_back(point);
}

void Path::CurveTo(Point control1, Point control2, Point end) {
  if (verbs_.empty()) MoveTo(control1);
  verbs_.push_back(Verb::Curve);
  points_.insert(points_.end(), {control1, control2, end});
}

void Path::Close() {
  if (!verbs_.empty() && verbs_.back() != Verb::Close) verbs_.push_back(Verb::Close);
}

void Path::AddPolyline(std::span<const Point> points, bool closed) {
  if (points.empty()) return;
  MoveTo(points.front());
  for (const Point point : points.subspan(1)) LineTo(point);
  if (closed) Close();
}

void Path::AddBox(const Box& box) {
  const Point corners[] = {
      {box.left, box.top}, {box.right, box.top}, {box.right, box.bottom}, {box.left, box.bottom}};
  AddPolyline(corners, true);
}

void Path::AddEllipse(const Box& box) {
  AddArc(box, 0, 2 * std::numbers::pi, false);
  Close();
}

void Path::AddRoundBox(const Box& box, double cornerWidth, double cornerHeight) {
  const double width = std::min(std::abs(cornerWidth), std::abs(box.Width()));
  const double height = std::min(std::abs(cornerHeight), std::abs(box.Height()));
  if (width <= 0 || height <= 0) return AddBox(box);
  const Box b = box.Normalised();
  const double quarter = std::numbers::pi / 2;
  AddArc({b.right - width, b.top, b.right, b.top + height}, -quarter, quarter, false);
  AddArc({b.right - width, b.bottom - height, b.right, b.bottom}, 0, quarter, true);
  AddArc({b.left, b.bottom - height, b.left + width, b.bottom}, quarter, quarter, true);
  AddArc({b.left, b.top, b.left + width, b.top + height}, 2 * quarter, quarter, true);
  Close();
}

void Path::AddArc(const Box& box, double startAngle, double sweep, bool connect) {
  const Point centre{(box.left + box.right) / 2, (box.top + box.bottom) / 2};
  const double radiusX = std::abs(box.Width()) / 2, radiusY = std::abs(box.Height()) / 2;
  const auto at = [&](double angle, double along) -> Point {
    const double cosine = std::cos(angle), sine = std::sin(angle);
    return {centre.x + radiusX * (cosine - along * sine), centre.y + radiusY * (sine + along * cosine)};
  };
  if (connect) {
    LineTo(at(startAngle, 0));
  } else {
    MoveTo(at(startAngle, 0));
  }
  const double bounded = std::clamp(sweep, -2 * std::numbers::pi, 2 * std::numbers::pi);
  const int pieces = std::max(1, static_cast<int>(std::ceil(std::abs(bounded) / (std::numbers::pi / 2))));
  const double step = bounded / pieces;
  // The usual cubic for a piece of a circle: the handles are 4/3 tan(step / 4) radii long.
  const double handle = 4.0 / 3.0 * std::tan(step / 4);
  for (int i = 0; i < pieces; ++i) {
    const double from = startAngle + step * i, to = from + step;
    CurveTo(at(from, handle), at(to, -handle), at(to, 0));
  }
}

void Path::Append(const Path& other, bool joined) {
  if (other.IsEmpty()) return;
  const bool open = !verbs_.empty() && verbs_.back() != Verb::Close;
  const std::ptrdiff_t skipped = joined && open ? 1 : 0;
  verbs_.insert(verbs_.end(), other.verbs_.begin() + skipped, other.verbs_.end());
  points_.insert(points_.end(), other.points_.begin() + skipped, other.points_.end());
}

std::optional<Point> Path::LastPoint() const {
  if (points_.empty()) return std::nullopt;
  return points_.back();
}

Path Path::Transformed(const Matrix& matrix) const {
  Path result;
  result.verbs_ = verbs_;
  result.points_.reserve(points_.size());
  for (const Point point : points_) result.points_.push_back(Clamped(matrix.Apply(point)));
  return result;
}

Path Path::WithCrispLines() const {
  Path result = *this;
  // A hair more, so that a coordinate that lost its last digit does not fall into the pixel before.
  const auto middle = [](double value) { return std::floor(value + 1e-4) + 0.5; };
  const auto straighten = [&](std::size_t from, std::size_t to) {
    const Point a = points_[from], b = points_[to];
    if (std::abs(a.y - b.y) < 1e-3) result.points_[from].y = result.points_[to].y = middle(a.y);
    if (std::abs(a.x - b.x) < 1e-3) result.points_[from].x = result.points_[to].x = middle(a.x);
  };
  std::size_t next = 0, start = 0;
  for (const Verb verb : verbs_) {
    if (verb == Verb::Move) start = next;
    if (verb == Verb::Line) straighten(next - 1, next);
    if (verb == Verb::Close && next > start + 1) straighten(next - 1, start);
    next += verb == Verb::Curve ? 3 : verb == Verb::Close ? 0 : 1;
  }
  return result;
}

Box Path::Bounds() const {
  if (points_.empty()) return {};
  Box box{points_[0].x, points_[0].y, points_[0].x, points_[0].y};
  for (const Point point : points_) {
    box.left = std::min(box.left, point.x);
    box.right = std::max(box.right, point.x);
    box.top = std::min(box.top, point.y);
    box.bottom = std::max(box.bottom, point.y);
  }
  return box;
}

double Path::EdgeRows(double top, double bottom) const {
  return Extent(points_, &Point::y, top, bottom);
}

double Path::EdgeColumns(double left, double right) const {
  return Extent(points_, &Point::x, left, right);
}

double Path::Length() const {
  double length = 0;
  for (std::size_t i = 1; i < points_.size(); ++i)
    length += std::hypot(points_[i].x - points_[i - 1].x, points_[i].y - points_[i - 1].y);
  return length;
}

std::optional<Box> Path::AsBox() const {
  constexpr Verb shape[] = {Verb::Move, Verb::Line, Verb::Line, Verb::Line, Verb::Close};
  if (!std::ranges::equal(verbs_, shape)) return std::nullopt;
  const auto same = [](double a, double b) { return std::abs(a - b) < 1e-6; };
  const auto& p = points_;
  const bool acrossFirst =
      same(p[0].y, p[1].y) && same(p[1].x, p[2].x) && same(p[2].y, p[3].y) && same(p[3].x, p[0].x);
  const bool downFirst =
      same(p[0].x, p[1].x) && same(p[1].y, p[2].y) && same(p[2].x, p[3].x) && same(p[3].y, p[0].y);
  if (!acrossFirst && !downFirst) return std::nullopt;
  return Box{p[0].x, p[0].y, p[2].x, p[2].y}.Normalised();
}

}  // namespace lumidex::metafile
