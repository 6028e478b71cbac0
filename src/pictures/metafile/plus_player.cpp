#include "pictures/metafile/plus_player.h"

#include <numbers>

#include "pictures/metafile/emf_reading.h"
#include "pictures/metafile/letters.h"
#include "pictures/metafile/nested.h"

namespace lumidex::metafile::plus {
namespace {

constexpr std::size_t recordHeaderBytes = 12;
constexpr unsigned colourInstead = 0x8000, continued = 0x8000, closes = 0x2000, appends = 0x2000;
constexpr std::size_t mostSaved = 1000;  // below the drawing's own bound

Path BoxPath(const Box& box) {
  Path path;
  path.AddBox(box);
  return path;
}

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

Player::Player(Drawing drawing) : drawing_(std::move(drawing)) {}

void Player::Play(Bytes records) {
  WorkBudget& budget = drawing_.Sheet().Budget();
  ByteReader reader(records);
  while (reader.Remaining() >= recordHeaderBytes && !ignored_) {
    const unsigned type = reader.U16Le(), flags = reader.U16Le();
    const std::uint32_t size = reader.U32Le(), dataBytes = reader.U32Le();
    if (size < recordHeaderBytes || !budget.Spend(CostOfRecord(size))) return;
    ByteReader rest = reader.Sub(size - recordHeaderBytes);
    PlayRecord({type, flags, rest.Sub(dataBytes)});
  }
}

void Player::PlayRecord(Record record) {
  if (record.type == 0x4001) return PlayHeader(record);
  if (record.type == 0x4008) return PlayObject(record);
  PlayTransform(record) || PlayState(record) || PlayClip(record) || PlayFill(record) || PlayLine(record) ||
      PlayImage(record) || PlayText(record);
}

void Player::PlayHeader(Record& record) {
  ignored_ = (record.flags & 1) != 0;
  record.reader.Skip(8);
  const std::uint32_t dots = record.reader.U32Le();
  if (dots >= 1 && dots <= 10000) dotsPerInch_ = dots;
}

void Player::PlayObject(Record& record) {
  const unsigned kind = record.flags >> 8 & 0x7F;
  Bytes bytes = record.reader.Take(record.reader.Remaining());
  if (record.flags & continued) {
    ByteReader part(bytes);
    const std::uint32_t total = part.U32Le();
    const Bytes more = part.Take(part.Remaining());
    pending_.insert(pending_.end(), more.begin(), more.end());
    if (pending_.size() < total) return;
    bytes = pending_;
  }
  objects_[record.ObjectNumber()] = ReadObject(kind, bytes);
  if (decodedNumber_ == record.ObjectNumber()) decoded_.reset();
  pending_.clear();
}

double Player::UnitsOfDevice(Unit unit) const {
  switch (unit) {
    case Unit::Point:
      return dotsPerInch_ / 72;
    case Unit::Inch:
      return dotsPerInch_;
    case Unit::Document:
      return dotsPerInch_ / 300;
    case Unit::Millimetre:
      return dotsPerInch_ / 25.4;
    default:
      return 1;
  }
}

double Player::Length(double length, Unit unit) const {
  const double scale = world_.Then(page_).MeanScale();
  return unit == Unit::World || !(scale > 0) ? length : length * UnitsOfDevice(unit) / scale;
}

void Player::UpdateWorld() {
  drawing_.State().world = world_.Then(page_);
}

bool Player::PlayTransform(Record& record) {
  ByteReader& reader = record.reader;
  Matrix change;
  switch (record.type) {
    case 0x402A:
      world_ = ReadMatrix(reader);
      UpdateWorld();
      return true;
    case 0x402B:
      world_ = {};
      UpdateWorld();
      return true;
    case 0x402C:
      change = ReadMatrix(reader);
      break;
    case 0x402D:
      change.x0 = ReadFloat(reader);
      change.y0 = ReadFloat(reader);
      break;
    case 0x402E:
      change.xx = ReadFloat(reader);
      change.yy = ReadFloat(reader);
      break;
    case 0x402F: {
      const double angle = ReadFloat(reader) * std::numbers::pi / 180;
      change = {.xx = std::cos(angle), .yx = std::sin(angle), .xy = -std::sin(angle), .yy = std::cos(angle)};
      break;
    }
    case 0x4030: {
      const double scale = UnitsOfDevice(static_cast<Unit>(record.flags & 7)) * ReadFloat(reader);
      page_ = {.xx = scale, .yy = scale};
      UpdateWorld();
      return true;
    }
    default:
      return false;
  }
  world_ = record.flags & appends ? world_.Then(change) : change.Then(world_);
  UpdateWorld();
  return true;
}

void Player::Restore(std::uint32_t number) {
  for (std::size_t i = saved_.size(); i-- > 0;) {
    if (saved_[i].number != number) continue;
    world_ = saved_[i].world;
    page_ = saved_[i].page;
    drawing_.Restore(static_cast<int>(i) + 1);
    saved_.resize(i);
    return UpdateWorld();
  }
}

bool Player::PlayState(Record& record) {
  switch (record.type) {
    case 0x4027:  // a part of the drawing with a map of its own
      record.reader.Skip(32);
      [[fallthrough]];
    case 0x4025:
    case 0x4028:
      if (saved_.size() < mostSaved) {
        saved_.push_back({record.reader.U32Le(), world_, page_});
        drawing_.Save();
      }
      return true;
    case 0x4026:
    case 0x4029:
      Restore(record.reader.U32Le());
      return true;
    default:
      return false;
  }
}

void Player::Clip(const Path& path, unsigned mode) {
  constexpr std::array modes = {ClipMode::Copy, ClipMode::And,        ClipMode::Or,
                                ClipMode::Xor,  ClipMode::Difference, ClipMode::And};
  drawing_.BeginPath();
  drawing_.Shape(path, false);
  drawing_.EndPath();
  drawing_.ClipToPath(modes[std::min<std::size_t>(mode, modes.size() - 1)]);
}

bool Player::PlayClip(Record& record) {
  const unsigned mode = record.flags >> 8 & 0xF;
  switch (record.type) {
    case 0x4031:
      drawing_.ResetClip();
      return true;
    case 0x4032:
      Clip(BoxPath(ReadBox(record.reader, false)), mode);
      return true;
    case 0x4033:
      if (const auto* path = Get<Path>(record.ObjectNumber())) Clip(*path, mode);
      return true;
    case 0x4034:
      if (const auto* clip = Get<ClipObject>(record.ObjectNumber())) {
        if (!clip->everything) {
          Clip(clip->outline, mode);
        } else if (mode == 0) {
          drawing_.ResetClip();
        }
      }
      return true;
    case 0x4035: {
      const double x = ReadFloat(record.reader);
      drawing_.OffsetClip({x, ReadFloat(record.reader)});
      return true;
    }
    default:
      return false;
  }
}

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
  Pen& chosen = drawing_.State().pen;
  chosen = object->pen;
  chosen.width = Length(chosen.width, object->unit);
  for (double& dash : chosen.dashes) dash = Length(dash, object->unit);
  drawing_.Shape(path, false);
}

Path Player::ReadPoly(Record& record, std::uint32_t count, bool closed) const {
  Path path;
  path.AddPolyline(ReadPoints(record.reader, count, record.HasNarrowPoints(), record.HasRelativePoints()),
                   closed);
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
      drawing_.Sheet().Fill(drawing_.State().clip, BoxPath(sheet), FillRule::Winding, SolidBrush(colour),
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
      if (const auto* clip = Get<ClipObject>(record.ObjectNumber())) Fill(clip->outline, brush);
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

const Pixels* Player::ImageOf(unsigned number) {
  const auto* image = Get<ImageObject>(number);
  if (!image) return nullptr;
  if (!decoded_ || decodedNumber_ != number) {
    decodedNumber_ = number;
    decoded_ = DecodeImage(image->bytes, drawing_.Sheet().Budget());
  }
  return decoded_ ? &*decoded_ : nullptr;
}

bool Player::PlayImage(Record& record) {
  if (record.type != 0x401A && record.type != 0x401B) return false;
  ByteReader& reader = record.reader;
  reader.Skip(4);
  const auto unit = static_cast<Unit>(reader.S32Le() & 7);
  Box source = ReadBox(reader, false);
  std::array<Point, 3> corners{};
  if (record.type == 0x401A) {
    const Box target = ReadBox(reader, record.HasNarrowPoints());
    corners = {Point{target.left, target.top}, {target.right, target.top}, {target.left, target.bottom}};
  } else {
    const std::uint32_t count = reader.U32Le();
    const auto points = ReadPoints(reader, count, record.HasNarrowPoints(), record.HasRelativePoints());
    if (points.size() < corners.size()) return true;
    std::ranges::copy_n(points.begin(), static_cast<std::ptrdiff_t>(corners.size()), corners.begin());
  }
  if (const auto* stored = Get<ImageObject>(record.ObjectNumber())) {
    if (const auto metafile = StoredMetafile(stored->bytes)) {
      const Point a = corners[0], b = corners[1], c = corners[2];
      PlayNested(drawing_, *metafile, {b.x - a.x, b.y - a.y, c.x - a.x, c.y - a.y, a.x, a.y});
      return true;
    }
  }
  const Pixels* const image = ImageOf(record.ObjectNumber());
  if (!image) return true;
  // A part measured in other units than pixels is nearly always the whole.
  if (unit != Unit::Pixel)
    source = {0, 0, static_cast<double>(image->Width()), static_cast<double>(image->Height())};
  drawing_.Parallelogram(source, corners, *image);
  return true;
}

}  // namespace lumidex::metafile::plus
