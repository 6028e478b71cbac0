#include "pictures/metafile/drawing.h"

#include <numbers>

namespace lumidex::metafile {
namespace {

// Deeper nesting than any program makes; keeps a file of saves from filling memory.
constexpr std::size_t mostSaved = 1024;

// Mapping a point and copying it from one path to the next.
constexpr double perPoint = 60;
constexpr double perRecoloredPixel = 6;
// One path of a bracket; no drawing needs more, and letters could make it any length.
constexpr std::size_t mostPathPoints = std::size_t{1} << 20;

}  // namespace

Drawing::Drawing(Canvas& canvas, const Device& device) : canvas_(canvas), device_(device) {
  state_.clip = state_.base = device_.within ? *device_.within : canvas.WholeClip();
}

Matrix Drawing::PageToDevice() const {
  const Matrix page = state_.mapping.PageToDevice(device_.pixelsPerMillimetre);
  return state_.rightToLeft ? page.Then({.xx = -1, .x0 = device_.mirroredAt}) : page;
}

Point Drawing::DeviceScale() const {
  const Matrix map = state_.world.Then(PageToDevice());
  return {map.HorizontalScale(), map.VerticalScale()};
}

Matrix Drawing::LogicalToSheet() const {
  return state_.world.Then(PageToDevice()).Then(device_.toSheet);
}

void Drawing::Save() {
  if (saved_.size() < mostSaved) saved_.push_back(state_);
}

void Drawing::Restore(int which) {
  const auto count = static_cast<std::int64_t>(saved_.size());
  const std::int64_t target = which < 0 ? count + which : std::int64_t{which} - 1;
  if (target < 0 || target >= count) return;
  state_ = std::move(saved_[static_cast<std::size_t>(target)]);
  saved_.resize(static_cast<std::size_t>(target));
}

void Drawing::Select(const Object& object) {
  if (const auto* pen = std::get_if<Pen>(&object)) state_.pen = *pen;
  if (const auto* brush = std::get_if<Brush>(&object)) state_.brush = *brush;
  if (const auto* font = std::get_if<Font>(&object)) state_.font = *font;
  if (const auto* palette = std::get_if<PaletteColors>(&object)) state_.palette = *palette;
  if (const auto* region = std::get_if<Region>(&object)) ClipRegion(region->boxes, ClipMode::Copy, false);
}

std::uint32_t Drawing::Color(std::uint32_t stored) const {
  if (stored >> 24 == 1 && (stored & 0xFFFF) < state_.palette->size())
    return (*state_.palette)[stored & 0xFFFF] & 0xFFFFFF;
  return (stored & 0xFF) << 16 | (stored & 0xFF00) | (stored >> 16 & 0xFF);
}

Ink Drawing::Completed(const Ink& ink) {
  Ink result = ink;
  if (ink.kind == Ink::Kind::Hatched && state_.opaqueBackground) result.background = state_.backgroundColor;
  if (ink.takesTextColors) result.tile = InTextColors(ink.tile);
  if (ink.tileMap) result.tileMap = ink.tileMap->Then(LogicalToSheet());
  if (ink.shading) result.shadingToSheet = ink.shading->map.Then(LogicalToSheet());
  result.origin = device_.toSheet.Apply(state_.brushOrigin);
  result.tileScale = UnitOnSheet();
  return result;
}

Pixels Drawing::InTextColors(const Pixels& tile) {
  auto& last = inTextColors_;
  if (tile.IsEmpty()) return tile;
  if (last.tile.Data() == tile.Data() && last.text == state_.textColor &&
      last.background == state_.backgroundColor)
    return last.result;
  const double pixels = static_cast<double>(tile.Width()) * tile.Height();
  WorkBudget& budget = canvas_.Budget();
  if (!budget.Spend(perRecoloredPixel * pixels) || !budget.Keep(static_cast<double>(tile.ByteCount())))
    return tile;
  Pixels result = Pixels::MakeUnfilled(tile.GetSize(), PixelFormat::Rgb);
  for (int y = 0; y < result.Height(); ++y)
    std::ranges::transform(tile.Row(y), result.Row(y).begin(), [&](std::uint32_t word) {
      return 0xFF000000U | ((word & 0xFFFFFF) == 0 ? state_.textColor : state_.backgroundColor);
    });
  last = {tile, result, state_.textColor, state_.backgroundColor};
  return result;
}

StrokeStyle Drawing::PenStyle() const {
  using namespace pen_style;
  const Pen& pen = state_.pen;
  const bool isGeometric = (pen.style & geometric) != 0;
  StrokeStyle style;
  const Matrix map = LogicalToSheet();
  style.miterLimit = state_.miterLimit;
  style.width = std::clamp(std::abs(pen.width), 0.0, 1e6);
  style.pen = {.xx = map.xx, .yx = map.yx, .xy = map.xy, .yy = map.yy};
  if (!isGeometric) style.pen = {.xx = map.HorizontalScale(), .yy = map.HorizontalScale()};
  const double reach = std::max(style.pen.HorizontalScale(), style.pen.VerticalScale()) * style.width;
  const bool thin = !style.pen.IsUsable() || style.width * style.pen.MeanScale() < 1;
  if (thin || !(reach < 1e5)) {
    style.width = 1;
    style.pen = {};
  }
  const unsigned cap = pen.style & capMask, join = pen.style & joinMask;
  style.cap = cap == capSquare ? CAIRO_LINE_CAP_SQUARE
              : cap == capFlat ? CAIRO_LINE_CAP_BUTT
                               : CAIRO_LINE_CAP_ROUND;
  style.join = join == joinBevel   ? CAIRO_LINE_JOIN_BEVEL
               : join == joinMiter ? CAIRO_LINE_JOIN_MITER
                                   : CAIRO_LINE_JOIN_ROUND;
  // A round tip on a line of one pixel only blurs its ends.
  if (thin && cap == 0) style.cap = CAIRO_LINE_CAP_SQUARE;

  const unsigned dash = pen.style & dashMask;
  if (dash == user) {
    // The lengths of a thin pen are those of the sheet.
    const double scale = thin && isGeometric ? map.MeanScale() : 1;
    for (const double length : pen.dashes)
      style.dashes.push_back(std::max(thin ? 1.0 : 1e-3, length * scale));
    style.dashOffset = pen.dashOffset * scale;
  } else if (dash == alternate) {
    style.dashes = {1, 1};
  } else if (dash >= 1 && dash <= 4 && isGeometric) {
    constexpr std::array<std::array<double, 6>, 4> multiples = {
        {{3, 1}, {1, 1}, {3, 1, 1, 1}, {3, 1, 1, 1, 1, 1}}};
    for (const double multiple : multiples[dash - 1])
      if (multiple > 0) style.dashes.push_back(multiple * style.width);
    if (!thin) style.dashOffset = pen.dashOffset;
  } else if (dash >= 1 && dash <= 4 && reach <= 1.001 * std::max(1.0, UnitOnSheet())) {
    constexpr std::array<std::array<double, 6>, 4> lengths = {
        {{18, 6}, {3, 3}, {9, 6, 3, 6}, {9, 3, 3, 3, 3, 3}}};
    for (const double length : lengths[dash - 1])
      if (length > 0) style.dashes.push_back(length * std::max(1.0, UnitOnSheet()));
  }
  if (!style.dashes.empty() && cap == 0 && !pen.roundDashes) style.cap = CAIRO_LINE_CAP_BUTT;
  return style;
}

void Drawing::StrokeSheet(const Path& path) {
  const unsigned dash = state_.pen.style & pen_style::dashMask;
  if (dash == pen_style::null) return;
  StrokeStyle style = PenStyle();
  if (!style.dashes.empty() && !(state_.pen.style & pen_style::geometric) && state_.opaqueBackground) {
    StrokeStyle solid = style;
    solid.dashes.clear();
    const Ink gaps{.kind = Ink::Kind::Solid, .color = state_.backgroundColor};
    canvas_.Stroke(state_.clip, path, solid, gaps, state_.rasterOperation);
  }
  canvas_.Stroke(state_.clip, path, style, Completed(state_.pen.ink), state_.rasterOperation);
}

void Drawing::FillSheet(const Path& path) {
  canvas_.Fill(state_.clip, path, state_.fillRule, Completed(state_.brush), state_.rasterOperation);
}

void Drawing::FillWidened(const Path& path) {
  canvas_.Stroke(state_.clip, path, PenStyle(), Completed(state_.brush), state_.rasterOperation);
}

bool Drawing::AffordPoints(std::size_t count) {
  return canvas_.Budget().Spend(perPoint * static_cast<double>(count));
}

void Drawing::Extend(const Path& onSheet, bool continues) {
  if (path_.PointCount() + onSheet.PointCount() <= mostPathPoints) path_.Append(onSheet, continues);
}

void Drawing::Shape(const Path& logical, bool filled, bool continues) {
  if (!AffordPoints(logical.PointCount())) return;
  const Path path = logical.Transformed(LogicalToSheet());
  if (pathOpen_) return Extend(path, continues);
  if (filled) FillSheet(path);
  StrokeSheet(path);
}

void Drawing::BoxShape(const Box& box, bool filled, const AddToPath& add, bool continues) {
  const Matrix map = LogicalToSheet();
  Path path;
  if (!map.KeepsAxes()) {
    // The shape is made where boxes are upright, in logical units.
    add(path, box.Normalised(), {});
    path = path.Transformed(map);
    if (pathOpen_) return Extend(path, continues);
    if (filled) FillSheet(path);
    return StrokeSheet(path);
  }
  // Upright boxes are worked out on the sheet, where it is known what one device pixel is.
  const Point from = map.Apply({box.left, box.top}), to = map.Apply({box.right, box.bottom});
  Box whole = Box{from.x, from.y, to.x, to.y}.Normalised();
  Box frame = whole;
  const double acrossUnit = device_.toSheet.HorizontalScale(), downUnit = device_.toSheet.VerticalScale();
  if (device_.boxesIncludeEdge) {
    whole.right += acrossUnit;
    whole.bottom += downUnit;
  } else {
    frame.right = std::max(frame.left, frame.right - acrossUnit);
    frame.bottom = std::max(frame.top, frame.bottom - downUnit);
  }
  if ((state_.pen.style & pen_style::dashMask) == pen_style::insideFrame) {
    const StrokeStyle style = PenStyle();
    const double inset = std::min({style.width * style.pen.MeanScale(), frame.Width(), frame.Height()}) / 2;
    if (inset > 0.5) frame = frame.Grown(-inset);
  }
  add(path, frame, map);
  path = path.Transformed({});
  if (pathOpen_) return Extend(path, continues);
  if (filled) {
    Path area;
    add(area, whole, map);
    FillSheet(area.Transformed({}));
  }
  StrokeSheet(path);
}

void Drawing::MoveTo(Point to) {
  state_.current = to;
  if (pathOpen_) path_.MoveTo(LogicalToSheet().Apply(to));
}

void Drawing::LineTo(Point to) {
  const Point points[] = {to};
  PolylineTo(points);
}

void Drawing::Polyline(std::span<const Point> points) {
  Path path;
  path.AddPolyline(points, false);
  Shape(path, false);
}

void Drawing::PolylineTo(std::span<const Point> points) {
  if (points.empty()) return;
  Path path;
  path.MoveTo(state_.current);
  for (const Point point : points) path.LineTo(point);
  state_.current = points.back();
  Shape(path, false, true);
}

void Drawing::Polygon(std::span<const Point> points) {
  Path path;
  path.AddPolyline(points, true);
  Shape(path, true);
}

void Drawing::PolyPolygon(std::span<const Point> points, std::span<const std::uint32_t> counts) {
  Path path;
  for (const std::uint32_t count : counts) {
    if (count > points.size()) break;
    path.AddPolyline(points.first(count), true);
    points = points.subspan(count);
  }
  Shape(path, true);
}

void Drawing::Curves(std::span<const Point> points) {
  if (points.empty()) return;
  Path path;
  path.MoveTo(points.front());
  for (std::size_t i = 1; i + 3 <= points.size(); i += 3)
    path.CurveTo(points[i], points[i + 1], points[i + 2]);
  Shape(path, false);
}

void Drawing::CurvesTo(std::span<const Point> points) {
  Path path;
  path.MoveTo(state_.current);
  for (std::size_t i = 0; i + 3 <= points.size(); i += 3) {
    path.CurveTo(points[i], points[i + 1], points[i + 2]);
    state_.current = points[i + 2];
  }
  Shape(path, false, true);
}

void Drawing::Rectangle(const Box& box) {
  BoxShape(box, true, [](Path& path, const Box& place, const Matrix&) { path.AddBox(place); });
}

void Drawing::RoundRectangle(const Box& box, Point corner) {
  BoxShape(box, true, [&](Path& path, const Box& place, const Matrix& map) {
    path.AddRoundBox(place, corner.x * map.xx, corner.y * map.yy);
  });
}

void Drawing::Ellipse(const Box& box) {
  BoxShape(box, true, [](Path& path, const Box& place, const Matrix&) { path.AddEllipse(place); });
}

void Drawing::Arc(const Box& box, Point start, Point end, ArcKind kind) {
  const Matrix whole = LogicalToSheet();
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
    if (state_.clockwiseArcs != mirrored) {
      if (sweep <= 1e-9) sweep += fullTurn;
    } else if (sweep >= -1e-9) {
      sweep -= fullTurn;
    }
    if (kind == ArcKind::Pie) path.MoveTo(centre);
    if (continues) path.MoveTo(map.Apply(state_.current));
    path.AddArc(place, from, sweep, continues || kind == ArcKind::Pie);
    if (filled) path.Close();
  };
  BoxShape(box, filled, add, continues);
  if (continues) state_.current = end;
}

void Drawing::AngleArc(Point centre, double radius, double startAngle, double sweepAngle) {
  const double toRadians = std::numbers::pi / 180;
  const double away = std::abs(radius);
  Path path;
  path.MoveTo(state_.current);
  path.AddArc({centre.x - away, centre.y - away, centre.x + away, centre.y + away}, -startAngle * toRadians,
              -std::clamp(sweepAngle, -360.0, 360.0) * toRadians, true);
  if (const auto last = path.LastPoint()) state_.current = *last;
  Shape(path, false, true);
}

void Drawing::SetPixel(Point at, std::uint32_t color) {
  const Point place = LogicalToSheet().Apply(at);
  const double size = std::max(1.0, UnitOnSheet());
  Path path;
  path.AddBox(Box{place.x, place.y, place.x + size, place.y + size}.Rounded());
  canvas_.Fill(state_.clip, path.Transformed({}), FillRule::Winding,
               {.kind = Ink::Kind::Solid, .color = color}, copyPen);
}

void Drawing::BeginPath() {
  pathOpen_ = true;
  pathWidened_ = false;
  path_ = {};
}

void Drawing::EndPath() {
  pathOpen_ = false;
}

void Drawing::AbortPath() {
  pathOpen_ = false;
  path_ = {};
}

void Drawing::CloseFigure() {
  if (pathOpen_) path_.Close();
}

void Drawing::DrawPath(bool filled, bool stroked) {
  pathOpen_ = false;
  const Path path = std::exchange(path_, {}).Transformed({});
  if (pathWidened_) return FillWidened(path);
  if (filled) FillSheet(path);
  if (stroked) StrokeSheet(path);
}

Path Drawing::SheetBox(const Box& logical) const {
  Path path;
  path.AddBox(logical);
  return path.Transformed(LogicalToSheet());
}

}  // namespace lumidex::metafile
