#include <numbers>

#include "pictures/metafile/emf_reading.h"
#include "pictures/metafile/plus_brushes.h"
#include "pictures/metafile/plus_player.h"

namespace lumidex::metafile::plus {
namespace {

constexpr unsigned colourInstead = 0x8000, closes = 0x2000;

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
  DeviceState& state = drawing_.State();
  state.pen = {.style = pen_style::null, .dashes = {}};
  state.brush = brush;
  drawing_.Shape(path, true);
}

void Player::Stroke(const Path& path, std::uint32_t pen) {
  const auto* object = Get<PenObject>(pen);
  if (!object) return;
  DeviceState& state = drawing_.State();
  const double scale = world_.Then(page_).MeanScale();
  const double width = Length(object->pen.width, object->unit);
  const CappedLines capped =
      WithCaps(path, *object, scale > 0 ? std::max(width, 1 / scale) : width, drawing_.Sheet().Budget());
  state.pen = object->pen;
  state.pen.width = width;
  state.pen.dashOffset = Length(state.pen.dashOffset, object->unit);
  for (double& dash : state.pen.dashes) dash = Length(dash, object->unit);
  state.miterLimit = state.pen.miterLimit;
  drawing_.Shape(capped.lines, false);
  if (!capped.stroked.IsEmpty()) {
    state.pen.style &= ~pen_style::dashMask;
    state.pen.dashes.clear();
    drawing_.Shape(capped.stroked, false);
  }
  if (capped.filled.IsEmpty()) return;
  const FillRule rule = std::exchange(state.fillRule, FillRule::Winding);
  Fill(capped.filled, object->pen.ink);
  state.fillRule = rule;
}

void Player::FillArea(const ClipObject& area, const Brush& brush) {
  if (area.nodes.size() == 1 && !area.nodes.front().everything)
    return Fill(area.nodes.front().outline, brush);
  drawing_.Save();
  ClipTo(area, 1);
  drawing_.State().world = {};
  drawing_.State().mapping = {};
  Fill(Path::OfBox({-1e5, -1e5, 1e5, 1e5}), brush);
  drawing_.Restore(-1);
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

bool Player::PlayFill(Record& record) {
  ByteReader& reader = record.reader;
  const bool narrow = record.HasNarrowPoints();
  const auto boxes = [&] {
    Path path;
    for (std::uint32_t count = reader.U32Le(); count > 0 && reader.Remaining() >= 8; --count)
      path.AddBox(ReadBox(reader, narrow));
    return path;
  };
  switch (record.type) {
    case 0x4009: {
      const Box sheet = drawing_.Sheet().Area();
      const std::uint32_t colour = reader.U32Le();
      drawing_.Sheet().Fill(drawing_.State().clip, Path::OfBox(sheet), FillRule::Winding, SolidBrush(colour),
                            copyPen);
      return true;
    }
    case 0x400A: {
      const Brush brush = ReadFillBrush(record);
      Fill(boxes(), brush);
      return true;
    }
    case 0x400C: {
      const Brush brush = ReadFillBrush(record);
      Fill(ReadPoly(record, reader.U32Le(), true), brush);
      return true;
    }
    case 0x400E: {
      const Brush brush = ReadFillBrush(record);
      Path path;
      path.AddEllipse(ReadBox(reader, narrow));
      Fill(path, brush);
      return true;
    }
    case 0x4010: {
      const Brush brush = ReadFillBrush(record);
      const double start = ReadFloat(reader), sweep = ReadFloat(reader);
      Fill(ArcPath(ReadBox(reader, narrow), start, sweep, true), brush);
      return true;
    }
    case 0x4013: {
      const Brush brush = ReadFillBrush(record);
      if (const auto* area = Get<ClipObject>(record.ObjectNumber())) FillArea(*area, brush);
      return true;
    }
    case 0x4016: {
      const Brush brush = ReadFillBrush(record);
      const double tension = ReadFloat(reader);
      Fill(ReadSpline(record, tension, true), brush);
      return true;
    }
    case 0x4014: {
      const Brush brush = ReadFillBrush(record);
      if (const auto* path = Get<Path>(record.ObjectNumber())) Fill(*path, brush);
      return true;
    }
    default:
      return false;
  }
}

bool Player::PlayLine(Record& record) {
  ByteReader& reader = record.reader;
  const bool narrow = record.HasNarrowPoints();
  const unsigned pen = record.ObjectNumber();
  switch (record.type) {
    case 0x400B: {
      Path path;
      for (std::uint32_t count = reader.U32Le(); count > 0 && reader.Remaining() >= 8; --count)
        path.AddBox(ReadBox(reader, narrow));
      Stroke(path, pen);
      return true;
    }
    case 0x400D:
      Stroke(ReadPoly(record, reader.U32Le(), (record.flags & closes) != 0), pen);
      return true;
    case 0x400F: {
      Path path;
      path.AddEllipse(ReadBox(reader, narrow));
      Stroke(path, pen);
      return true;
    }
    case 0x4011:
    case 0x4012: {
      const double start = ReadFloat(reader), sweep = ReadFloat(reader);
      Stroke(ArcPath(ReadBox(reader, narrow), start, sweep, record.type == 0x4011), pen);
      return true;
    }
    case 0x4015:
      if (const auto* path = Get<Path>(record.ObjectNumber())) Stroke(*path, reader.U32Le());
      return true;
    case 0x4017:
    case 0x4018: {
      const bool closed = record.type == 0x4017;
      const double tension = ReadFloat(reader);
      if (!closed) reader.Skip(8);  // which part of it: nearly always all
      Stroke(ReadSpline(record, tension, closed), pen);
      return true;
    }
    case 0x4019: {
      const std::uint32_t count = reader.U32Le();
      const auto points = ReadPoints(reader, count, narrow, record.HasRelativePoints());
      Path path;
      if (!points.empty()) path.MoveTo(points.front());
      for (std::size_t i = 1; i + 3 <= points.size(); i += 3)
        path.CurveTo(points[i], points[i + 1], points[i + 2]);
      Stroke(path, pen);
      return true;
    }
    default:
      return false;
  }
}

}  // namespace lumidex::metafile::plus
