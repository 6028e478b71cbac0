#include "pictures/metafile/plus_player.h"

#include <numbers>

#include "pictures/metafile/emf_reading.h"
#include "pictures/metafile/nested.h"

namespace lumidex::metafile::plus {
namespace {

constexpr std::size_t recordHeaderBytes = 12;
constexpr unsigned continued = 0x8000, appends = 0x2000;
constexpr std::size_t mostSaved = 1000;  // below the drawing's own bound

}  // namespace

Player::Player(Drawing drawing) : drawing_(std::move(drawing)) {
  // Hatches say themselves what stands between their lines.
  drawing_.State().opaqueBackground = false;
}

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
  objects_[record.ObjectNumber()] = ReadObject(kind, bytes, drawing_.Sheet().Budget());
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
      ForgetPicture();
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
