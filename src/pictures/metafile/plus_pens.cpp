// The pens of the later records and what stands at the ends of their lines.

#include <algorithm>
#include <utility>

#include "pictures/metafile/emf_reading.h"
#include "pictures/metafile/plus_brushes.h"
#include "pictures/metafile/plus_objects.h"

namespace lumidex::metafile::plus {
namespace {

constexpr unsigned flat = 0, square = 1, round = 2, triangle = 3, squareAnchor = 0x11, roundAnchor = 0x12,
                   diamondAnchor = 0x13, arrowAnchor = 0x14;

Path Shape(std::initializer_list<Point> corners) {
  Path path;
  path.AddPolyline(corners, true);
  return path;
}

// The ends that have a number. How far anchors reach is not written down: they are twice as wide as the line.
LineCap CapOf(unsigned number) {
  constexpr double arrowLength = 1.732, anchorSide = 0.707;
  LineCap cap;
  switch (number) {
    case square:
      cap.filled.AddBox({-0.5, 0, 0.5, 0.5});
      cap.plain = square;
      break;
    case round:
      cap.filled.AddEllipse({-0.5, -0.5, 0.5, 0.5});
      cap.plain = round;
      break;
    case triangle:
      cap.filled = Shape({{-0.5, 0}, {0, 0.5}, {0.5, 0}});
      break;
    case squareAnchor:
      cap.filled.AddBox({-anchorSide, -anchorSide, anchorSide, anchorSide});
      break;
    case roundAnchor:
      cap.filled.AddEllipse({-1, -1, 1, 1});
      break;
    case diamondAnchor:
      cap.filled = Shape({{-1, 0}, {0, 1}, {1, 0}, {0, -1}});
      break;
    case arrowAnchor:
      cap.filled = Shape({{-1, -arrowLength}, {0, 0}, {1, -arrowLength}});
      cap.inset = 1;
      break;
    default:
      cap.plain = flat;
  }
  return cap;
}

LineCap ReadArrow(ByteReader& reader) {
  const double width = std::abs(ReadFloat(reader)), height = std::abs(ReadFloat(reader));
  const double middle = std::clamp(ReadFloat(reader), -height, height);
  const bool filled = reader.U32Le() != 0;
  reader.Skip(16);
  const double given = std::abs(ReadFloat(reader)), scale = given > 0 ? given : 1;
  const double side = width / 2 * scale, length = height * scale, hollow = length - middle * scale;
  LineCap cap;
  if (!filled) {
    const Point corners[] = {{-side, -length}, {0, 0}, {side, -length}};
    cap.stroked.AddPolyline(corners, false);
    return cap;
  }
  cap.filled = Shape({{-side, -length}, {0, 0}, {side, -length}, {0, -hollow}});
  // The line goes into the arrow as far as it is hidden there.
  cap.inset = side > 0 ? std::min(hollow, length / (2 * side)) : 0;
  return cap;
}

LineCap ReadOutlinedCap(ByteReader& reader) {
  constexpr std::uint32_t hasArea = 1, hasLines = 2;
  constexpr std::size_t mostPoints = 1000;
  const std::uint32_t given = reader.U32Le();
  reader.Skip(4);
  LineCap cap{.inset = ReadFloat(reader)};
  reader.Skip(16);
  const double named = std::abs(ReadFloat(reader)), scale = named > 0 ? named : 1;
  reader.Skip(16);
  const auto readOutline = [&](Path& to) {
    ByteReader path = reader.Sub(reader.U32Le());
    to = ReadPath(path).Transformed({.xx = scale, .yy = scale});
    if (to.PointCount() > mostPoints) to = {};
  };
  if (given & hasArea) readOutline(cap.filled);
  if (given & hasLines) readOutline(cap.stroked);
  cap.inset = std::clamp(cap.inset * scale, 0.0, 1000.0);
  return cap;
}

LineCap ReadCustomCap(ByteReader reader) {
  constexpr std::uint32_t arrow = 1;
  reader.Skip(4);
  return reader.U32Le() == arrow ? ReadArrow(reader) : ReadOutlinedCap(reader);
}

unsigned StyleOfCap(unsigned cap) {
  return cap == square ? pen_style::capSquare : cap == round ? 0U : pen_style::capFlat;
}

double Distance(Point a, Point b) {
  return std::hypot(a.x - b.x, a.y - b.y);
}

// One line of a path, from a move to the next.
struct Figure {
  std::vector<Path::Verb> verbs;
  std::vector<Point> points;

  bool Has(Path::Verb verb) const { return std::ranges::find(verbs, verb) != verbs.end(); }
};

// Makes the figure shorter by `inset` at its first point; answers the direction in which it pointed there.
Point Shorten(std::vector<Point>& points, bool straight, double inset) {
  const Point tip = points.front();
  const double least = straight ? std::max(inset, 1e-9) : 1e-9;
  std::size_t next = 1;
  while (next + 1 < points.size() && Distance(points[next], tip) < least) ++next;
  const double length = Distance(points[next], tip);
  if (!(length > 0)) return {};
  const Point direction{(tip.x - points[next].x) / length, (tip.y - points[next].y) / length};
  if (straight) points.erase(points.begin() + 1, points.begin() + static_cast<std::ptrdiff_t>(next));
  const double back = std::min(inset, length * 0.99);
  points.front() = {tip.x - direction.x * back, tip.y - direction.y * back};
  return direction;
}

void AppendFigure(Path& path, const Figure& figure, bool straight) {
  if (straight) return path.AddPolyline(figure.points, false);
  const Point* p = figure.points.data();
  for (const Path::Verb verb : figure.verbs) {
    if (verb == Path::Verb::Move) path.MoveTo(*p);
    if (verb == Path::Verb::Line) path.LineTo(*p);
    if (verb == Path::Verb::Curve) path.CurveTo(p[0], p[1], p[2]);
    if (verb == Path::Verb::Close) path.Close();
    p += verb == Path::Verb::Curve ? 3 : verb == Path::Verb::Close ? 0 : 1;
  }
}

class Capper {
 public:
  Capper(const PenObject& pen, double width, WorkBudget& budget)
      : pen_(pen), width_(width), budget_(budget) {}

  void Add(Figure figure) {
    const bool straight = !figure.Has(Path::Verb::Curve) && !figure.Has(Path::Verb::Close);
    if (!figure.Has(Path::Verb::Close) && figure.points.size() >= 2) {
      Put(pen_.start, figure.points, straight);
      std::ranges::reverse(figure.points);
      Put(pen_.end, figure.points, straight);
      std::ranges::reverse(figure.points);
    }
    AppendFigure(result_.lines, figure, straight);
  }
  CappedLines Take() { return std::move(result_); }

 private:
  void Put(const LineCap& cap, std::vector<Point>& points, bool straight) {
    constexpr double perPoint = 120;
    constexpr std::size_t mostPoints = std::size_t{1} << 18;
    const std::size_t count = cap.filled.PointCount() + cap.stroked.PointCount();
    const std::size_t sofar = result_.filled.PointCount() + result_.stroked.PointCount();
    if (count == 0 || sofar > mostPoints || !budget_.Spend(perPoint * static_cast<double>(count + 2))) return;
    const Point tip = points.front();
    const Point along = Shorten(points, straight, cap.inset * width_);
    const Matrix place{.xx = -along.y * width_,
                       .yx = along.x * width_,
                       .xy = along.x * width_,
                       .yy = along.y * width_,
                       .x0 = tip.x,
                       .y0 = tip.y};
    result_.filled.Append(cap.filled.Transformed(place));
    result_.stroked.Append(cap.stroked.Transformed(place));
  }

  const PenObject& pen_;
  double width_;
  WorkBudget& budget_;
  CappedLines result_;
};

}  // namespace

PenObject ReadPen(ByteReader& reader, WorkBudget& budget) {
  PenObject object{.pen = {.style = pen_style::geometric | pen_style::joinMiter,
                           .width = 1,
                           .ink = {.kind = Ink::Kind::Solid},
                           .dashes = {}},
                   .start = CapOf(flat),
                   .end = CapOf(flat)};
  Pen& pen = object.pen;
  reader.Skip(8);
  const std::uint32_t given = reader.U32Le();
  object.unit = static_cast<Unit>(std::min<std::uint32_t>(reader.U32Le(), 6));
  pen.width = std::abs(ReadFloat(reader));
  // What is given beyond that, one bit each, stands in the order of the bits.
  const auto has = [&](unsigned bit) { return (given >> bit & 1) != 0; };
  unsigned dashCap = flat;
  if (has(0)) reader.Skip(24);  // a map of the pen's own
  if (has(1)) object.start = CapOf(reader.U32Le());
  if (has(2)) object.end = CapOf(reader.U32Le());
  if (has(3)) {
    const std::uint32_t join = reader.U32Le();
    pen.style = (pen.style & ~pen_style::joinMask) | (join == 1   ? pen_style::joinBevel
                                                      : join == 2 ? 0U
                                                                  : pen_style::joinMiter);
  }
  if (has(4)) pen.miterLimit = std::clamp(ReadFloat(reader), 1.0, 1000.0);
  if (has(5)) {
    const std::uint32_t style = reader.U32Le();
    pen.style |= style <= 4 ? style : 0U;
  }
  if (has(6)) dashCap = reader.U32Le();
  if (has(7)) pen.dashOffset = ReadFloat(reader) * pen.width;
  if (has(8)) {
    const std::uint32_t count = reader.U32Le();
    for (std::uint32_t i = 0; i < count && reader.Remaining() >= 4; ++i) {
      const double length = std::abs(ReadFloat(reader)) * pen.width;
      if (i < 16) pen.dashes.push_back(length);
    }
    pen.style = (pen.style & ~pen_style::dashMask) | pen_style::user;
  }
  if (has(9)) reader.Skip(4);
  // Several lines beside each other: drawn as one.
  if (has(10)) reader.Skip(std::min<std::size_t>(std::size_t{reader.U32Le()} * 4, reader.Remaining()));
  if (has(11)) object.start = ReadCustomCap(reader.Sub(reader.U32Le()));
  if (has(12)) object.end = ReadCustomCap(reader.Sub(reader.U32Le()));
  pen.ink = ReadBrush(reader, budget);

  const bool dashed = (pen.style & pen_style::dashMask) != 0;
  pen.roundDashes = dashed && dashCap == round;
  const bool same = object.start.plain && object.start.plain == object.end.plain;
  const unsigned cap = dashed ? dashCap : same ? *object.start.plain : flat;
  pen.style |= StyleOfCap(cap);
  // What the renderer makes itself needs no shape.
  for (LineCap* end : {&object.start, &object.end})
    if (end->plain == cap) end->filled = {};
  return object;
}

CappedLines WithCaps(const Path& path, const PenObject& pen, double width, WorkBudget& budget) {
  const bool any = !pen.start.filled.IsEmpty() || !pen.start.stroked.IsEmpty() || !pen.end.filled.IsEmpty() ||
                   !pen.end.stroked.IsEmpty();
  if (!any) return {path, {}, {}};
  Capper capper(pen, width, budget);
  Figure figure;
  std::size_t next = 0;
  for (const Path::Verb verb : path.Verbs()) {
    if (verb == Path::Verb::Move && !figure.verbs.empty()) capper.Add(std::exchange(figure, {}));
    figure.verbs.push_back(verb);
    const std::size_t count = verb == Path::Verb::Curve ? 3 : verb == Path::Verb::Close ? 0 : 1;
    for (std::size_t i = 0; i < count; ++i) figure.points.push_back(path.Points()[next++]);
  }
  capper.Add(std::move(figure));
  return capper.Take();
}

}  // namespace lumidex::metafile::plus
