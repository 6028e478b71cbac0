#include <numbers>
#include <utility>

#include "pictures/metafile/emf_reading.h"
#include "pictures/metafile/plus_brushes.h"
#include "pictures/metafile/plus_player.h"

namespace lumidex::metafile::plus {
namespace {

constexpr unsigned colourInstead = 0x8000, closes = 0x2000;
constexpr unsigned intersects = 1;  // of a clip

// Part of the ellipse in `box`, angles in degrees clockwise from the right.
Path ArcPath(const Box& box, double start, double sweep, bool pie) {
  const double toRadians = std::numbers::pi / 180;
  Path path;
  if (pie) path.MoveTo({(box.left + box.right) / 2, (box.top + box.bottom) / 2});
  path.AddArc(box, start * toRadians, sweep * toRadians, pie);
  if (pie) path.Close();
  return path;
}

}  // namespace

Brush Player::ReadFillBrush(Record& record) const {
  const std::uint32_t word = record.reader.U32Le();
  if (record.flags & colourInstead) return SolidBrush(word);
  const auto* brush = Get<Brush>(word);
  return brush ? *brush : Brush{};
}

void Player::Fill(const Path& path, const Brush& brush) {
  DeviceState& state = State();
  state.pen = {.style = pen_style::null, .dashes = {}};
  state.brush = brush;
  drawing_.shapes.Draw(path, true);
}

void Player::Stroke(const Path& path, std::uint32_t pen) {
  const auto* object = Get<PenObject>(pen);
  if (!object) return;
  DeviceState& state = State();
  const double scale = world_.Then(page_).MeanScale();
  const double width = Length(object->pen.width, object->unit);
  const CappedLines capped =
      WithCaps(path, *object, scale > 0 ? std::max(width, 1 / scale) : width, drawing_.context.Budget());
  state.pen = object->pen;
  state.pen.width = width;
  state.pen.dashOffset = Length(state.pen.dashOffset, object->unit);
  for (double& dash : state.pen.dashes) dash = Length(dash, object->unit);
  state.miterLimit = state.pen.miterLimit;
  drawing_.shapes.Draw(capped.lines, false);
  if (!capped.stroked.IsEmpty()) {
    state.pen.style &= ~pen_style::dashMask;
    state.pen.dashes.clear();
    drawing_.shapes.Draw(capped.stroked, false);
  }
  if (capped.filled.IsEmpty()) return;
  const FillRule rule = std::exchange(state.fillRule, FillRule::Winding);
  Fill(capped.filled, object->pen.ink);
  state.fillRule = rule;
}

void Player::FillArea(const ClipObject& area, const Brush& brush) {
  if (area.nodes.size() == 1 && !area.nodes.front().everything)
    return Fill(area.nodes.front().outline, brush);
  drawing_.context.Save();
  ClipTo(area, intersects);
  State().world = {};
  State().mapping = {};
  Fill(Path::OfBox({-1e5, -1e5, 1e5, 1e5}), brush);
  drawing_.context.Restore(-1);
}

Path Player::ReadPoly(Record& record, std::uint32_t count, bool closed) const {
  Path path;
  path.AddPolyline(ReadPoints(record.reader, count, record.HasNarrowPoints(), record.HasRelativePoints()),
                   closed);
  return path;
}

Path Player::ReadSpline(Record& record, double tension, bool closed) const {
  const std::uint32_t count = record.reader.U32Le();
  const auto points = ReadPoints(record.reader, count, record.HasNarrowPoints(), record.HasRelativePoints());
  Path path;
  if (points.empty()) return path;
  // A cardinal spline: at each point the curve runs in the direction from the one before to the one behind.
  const auto size = static_cast<std::ptrdiff_t>(points.size());
  const auto at = [&](std::ptrdiff_t i) {
    return points[static_cast<std::size_t>(closed ? (i + size) % size
                                                  : std::clamp<std::ptrdiff_t>(i, 0, size - 1))];
  };
  const auto slope = [&](std::ptrdiff_t i) {
    return Point{(at(i + 1).x - at(i - 1).x) * tension / 3, (at(i + 1).y - at(i - 1).y) * tension / 3};
  };
  path.MoveTo(points.front());
  for (std::ptrdiff_t i = 0; i < (closed ? size : size - 1); ++i) {
    const Point from = at(i), to = at(i + 1), leaving = slope(i), arriving = slope(i + 1);
    path.CurveTo({from.x + leaving.x, from.y + leaving.y}, {to.x - arriving.x, to.y - arriving.y}, to);
  }
  if (closed) path.Close();
  return path;
}

Path Player::ReadBoxes(Record& record) const {
  Path path;
  for (std::uint32_t count = record.reader.U32Le(); count > 0 && record.reader.Remaining() >= 8; --count)
    path.AddBox(ReadBox(record.reader, record.HasNarrowPoints()));
  return path;
}

Path Player::ReadEllipse(Record& record) const {
  Path path;
  path.AddEllipse(ReadBox(record.reader, record.HasNarrowPoints()));
  return path;
}

void Player::PlayClear(Record& record) {
  Canvas& sheet = drawing_.context.GetCanvas();
  sheet.Fill(State().clip, Path::OfBox(sheet.Area()), FillRule::Winding, SolidBrush(record.reader.U32Le()),
             copyPen);
}

void Player::PlayFillRects(Record& record) {
  const Brush brush = ReadFillBrush(record);
  Fill(ReadBoxes(record), brush);
}

void Player::PlayFillPolygon(Record& record) {
  const Brush brush = ReadFillBrush(record);
  const std::uint32_t count = record.reader.U32Le();
  Fill(ReadPoly(record, count, true), brush);
}

void Player::PlayFillEllipse(Record& record) {
  const Brush brush = ReadFillBrush(record);
  Fill(ReadEllipse(record), brush);
}

void Player::PlayFillPie(Record& record) {
  const Brush brush = ReadFillBrush(record);
  const double start = ReadFloat(record.reader), sweep = ReadFloat(record.reader);
  Fill(ArcPath(ReadBox(record.reader, record.HasNarrowPoints()), start, sweep, true), brush);
}

void Player::PlayFillRegion(Record& record) {
  const Brush brush = ReadFillBrush(record);
  if (const auto* area = Get<ClipObject>(record.ObjectNumber())) FillArea(*area, brush);
}

void Player::PlayFillPath(Record& record) {
  const Brush brush = ReadFillBrush(record);
  if (const auto* path = Get<Path>(record.ObjectNumber())) Fill(*path, brush);
}

void Player::PlayFillClosedCurve(Record& record) {
  const Brush brush = ReadFillBrush(record);
  const double tension = ReadFloat(record.reader);
  Fill(ReadSpline(record, tension, true), brush);
}

void Player::PlayDrawRects(Record& record) {
  Stroke(ReadBoxes(record), record.ObjectNumber());
}

void Player::PlayDrawLines(Record& record) {
  const std::uint32_t count = record.reader.U32Le();
  Stroke(ReadPoly(record, count, (record.flags & closes) != 0), record.ObjectNumber());
}

void Player::PlayDrawEllipse(Record& record) {
  Stroke(ReadEllipse(record), record.ObjectNumber());
}

void Player::PlayDrawPie(Record& record) {
  const double start = ReadFloat(record.reader), sweep = ReadFloat(record.reader);
  Stroke(ArcPath(ReadBox(record.reader, record.HasNarrowPoints()), start, sweep, true),
         record.ObjectNumber());
}

void Player::PlayDrawArc(Record& record) {
  const double start = ReadFloat(record.reader), sweep = ReadFloat(record.reader);
  Stroke(ArcPath(ReadBox(record.reader, record.HasNarrowPoints()), start, sweep, false),
         record.ObjectNumber());
}

void Player::PlayDrawPath(Record& record) {
  if (const auto* path = Get<Path>(record.ObjectNumber())) Stroke(*path, record.reader.U32Le());
}

void Player::PlayDrawClosedCurve(Record& record) {
  const double tension = ReadFloat(record.reader);
  Stroke(ReadSpline(record, tension, true), record.ObjectNumber());
}

void Player::PlayDrawCurve(Record& record) {
  const double tension = ReadFloat(record.reader);
  record.reader.Skip(8);  // which part of it: nearly always all
  Stroke(ReadSpline(record, tension, false), record.ObjectNumber());
}

void Player::PlayDrawBeziers(Record& record) {
  const std::uint32_t count = record.reader.U32Le();
  const auto points = ReadPoints(record.reader, count, record.HasNarrowPoints(), record.HasRelativePoints());
  Path path;
  if (!points.empty()) path.MoveTo(points.front());
  for (std::size_t i = 1; i + 3 <= points.size(); i += 3)
    path.CurveTo(points[i], points[i + 1], points[i + 2]);
  Stroke(path, record.ObjectNumber());
}

}  // namespace lumidex::metafile::plus
