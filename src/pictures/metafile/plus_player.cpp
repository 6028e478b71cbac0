#include "pictures/metafile/plus_player.h"

#include <numbers>

#include "pictures/metafile/blits.h"
#include "pictures/metafile/emf_reading.h"
#include "pictures/metafile/nested.h"
#include "pictures/metafile/record_table.h"

namespace lumidex::metafile::plus {
namespace {

constexpr std::size_t recordHeaderBytes = 12;
constexpr unsigned continued = 0x8000, appends = 0x2000;
// The drawing is there as plain records too.
constexpr unsigned heldTwice = 1;
constexpr std::size_t mostSaved = 1000;  // below the drawing's own bound

}  // namespace

Player::Player(Canvas& canvas, const Device& device) : drawing_(canvas, device) {
  // Hatches say themselves what stands between their lines.
  State().opaqueBackground = false;
}

void Player::Play(Bytes records) {
  WorkBudget& budget = drawing_.context.Budget();
  ByteReader reader(records);
  while (reader.Remaining() >= recordHeaderBytes && !ignored_) {
    const auto type = static_cast<PlusRecord>(reader.U16Le());
    const unsigned flags = reader.U16Le();
    const std::uint32_t size = reader.U32Le(), dataBytes = reader.U32Le();
    if (size < recordHeaderBytes || !budget.Spend(CostOfRecord(size))) return;
    ByteReader rest = reader.Sub(size - recordHeaderBytes);
    PlayRecord({type, flags, rest.Sub(dataBytes)});
  }
}

void Player::PlayRecord(Record record) {
  static constexpr RecordEntry<PlusRecord, void (Player::*)(Record&)> entries[] = {
      {PlusRecord::Header, &Player::PlayHeader},
      {PlusRecord::Object, &Player::PlayObject},
      {PlusRecord::SetWorldTransform, &Player::PlaySetWorldTransform},
      {PlusRecord::ResetWorldTransform, &Player::PlayResetWorldTransform},
      {PlusRecord::MultiplyWorldTransform, &Player::PlayMultiplyWorldTransform},
      {PlusRecord::TranslateWorldTransform, &Player::PlayTranslateWorldTransform},
      {PlusRecord::ScaleWorldTransform, &Player::PlayScaleWorldTransform},
      {PlusRecord::RotateWorldTransform, &Player::PlayRotateWorldTransform},
      {PlusRecord::SetPageTransform, &Player::PlaySetPageTransform},
      {PlusRecord::Save, &Player::PlaySave},
      {PlusRecord::BeginContainerNoParams, &Player::PlaySave},
      {PlusRecord::Restore, &Player::PlayRestore},
      {PlusRecord::EndContainer, &Player::PlayRestore},
      {PlusRecord::BeginContainer, &Player::PlayBeginContainer},
      {PlusRecord::ResetClip, &Player::PlayResetClip},
      {PlusRecord::SetClipRect, &Player::PlaySetClipRect},
      {PlusRecord::SetClipPath, &Player::PlaySetClipPath},
      {PlusRecord::SetClipRegion, &Player::PlaySetClipRegion},
      {PlusRecord::OffsetClip, &Player::PlayOffsetClip},
      {PlusRecord::Clear, &Player::PlayClear},
      {PlusRecord::FillRects, &Player::PlayFillRects},
      {PlusRecord::FillPolygon, &Player::PlayFillPolygon},
      {PlusRecord::FillEllipse, &Player::PlayFillEllipse},
      {PlusRecord::FillPie, &Player::PlayFillPie},
      {PlusRecord::FillRegion, &Player::PlayFillRegion},
      {PlusRecord::FillPath, &Player::PlayFillPath},
      {PlusRecord::FillClosedCurve, &Player::PlayFillClosedCurve},
      {PlusRecord::DrawRects, &Player::PlayDrawRects},
      {PlusRecord::DrawLines, &Player::PlayDrawLines},
      {PlusRecord::DrawEllipse, &Player::PlayDrawEllipse},
      {PlusRecord::DrawPie, &Player::PlayDrawPie},
      {PlusRecord::DrawArc, &Player::PlayDrawArc},
      {PlusRecord::DrawPath, &Player::PlayDrawPath},
      {PlusRecord::DrawClosedCurve, &Player::PlayDrawClosedCurve},
      {PlusRecord::DrawCurve, &Player::PlayDrawCurve},
      {PlusRecord::DrawBeziers, &Player::PlayDrawBeziers},
      {PlusRecord::DrawImage, &Player::PlayDrawImage},
      {PlusRecord::DrawImagePoints, &Player::PlayDrawImagePoints},
      {PlusRecord::DrawString, &Player::PlayDrawString},
      {PlusRecord::DrawDriverString, &Player::PlayDrawDriverString},
  };
  static constexpr RecordTable table(entries);
  if (const auto play = table.Find(record.type)) (this->*play)(record);
}

void Player::PlayHeader(Record& record) {
  ignored_ = (record.flags & heldTwice) != 0;
  record.reader.Skip(8);
  const std::uint32_t dots = record.reader.U32Le();
  if (dots >= 1 && dots <= 10000) dotsPerInch_ = dots;
}

void Player::PlayObject(Record& record) {
  const auto kind = static_cast<ObjectKind>(record.flags >> 8 & 0x7F);
  Bytes bytes = record.reader.Take(record.reader.Remaining());
  if (record.flags & continued) {
    ByteReader part(bytes);
    const std::uint32_t total = part.U32Le();
    const Bytes more = part.Take(part.Remaining());
    pending_.insert(pending_.end(), more.begin(), more.end());
    if (pending_.size() < total) return;
    bytes = pending_;
  }
  objects_[record.ObjectNumber()] = ReadObject(kind, bytes, drawing_.context.Budget());
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
  State().world = world_.Then(page_);
}

void Player::ChangeWorld(const Record& record, const Matrix& change) {
  world_ = record.flags & appends ? world_.Then(change) : change.Then(world_);
  UpdateWorld();
}

void Player::PlaySetWorldTransform(Record& record) {
  world_ = ReadMatrix(record.reader);
  UpdateWorld();
}

void Player::PlayResetWorldTransform(Record&) {
  world_ = {};
  UpdateWorld();
}

void Player::PlayMultiplyWorldTransform(Record& record) {
  ChangeWorld(record, ReadMatrix(record.reader));
}

void Player::PlayTranslateWorldTransform(Record& record) {
  const double across = ReadFloat(record.reader);
  ChangeWorld(record, {.x0 = across, .y0 = ReadFloat(record.reader)});
}

void Player::PlayScaleWorldTransform(Record& record) {
  const double across = ReadFloat(record.reader);
  ChangeWorld(record, {.xx = across, .yy = ReadFloat(record.reader)});
}

void Player::PlayRotateWorldTransform(Record& record) {
  const double angle = ReadFloat(record.reader) * std::numbers::pi / 180;
  ChangeWorld(record,
              {.xx = std::cos(angle), .yx = std::sin(angle), .xy = -std::sin(angle), .yy = std::cos(angle)});
}

void Player::PlaySetPageTransform(Record& record) {
  const double scale = UnitsOfDevice(static_cast<Unit>(record.flags & 7)) * ReadFloat(record.reader);
  page_ = {.xx = scale, .yy = scale};
  UpdateWorld();
}

void Player::PlaySave(Record& record) {
  if (saved_.size() >= mostSaved) return;
  saved_.push_back({record.reader.U32Le(), world_, page_});
  drawing_.context.Save();
}

// A part of the drawing with a map of its own.
void Player::PlayBeginContainer(Record& record) {
  record.reader.Skip(32);
  PlaySave(record);
}

void Player::PlayRestore(Record& record) {
  const std::uint32_t number = record.reader.U32Le();
  for (std::size_t i = saved_.size(); i-- > 0;) {
    if (saved_[i].number != number) continue;
    world_ = saved_[i].world;
    page_ = saved_[i].page;
    drawing_.context.Restore(static_cast<int>(i) + 1);
    saved_.resize(i);
    return UpdateWorld();
  }
}

const Pixels* Player::ImageOf(unsigned number) {
  const auto* image = Get<ImageObject>(number);
  if (!image) return nullptr;
  if (!decoded_ || decodedNumber_ != number) {
    decodedNumber_ = number;
    decoded_ = DecodeImage(image->bytes, drawing_.context.Budget());
  }
  return decoded_ ? &*decoded_ : nullptr;
}

void Player::PlayDrawImage(Record& record) {
  ByteReader& reader = record.reader;
  reader.Skip(4);
  const auto unit = static_cast<Unit>(reader.S32Le() & 7);
  const Box source = ReadBox(reader, false), target = ReadBox(reader, record.HasNarrowPoints());
  DrawImage(record, unit, source,
            std::array{Point{target.left, target.top}, Point{target.right, target.top},
                       Point{target.left, target.bottom}});
}

void Player::PlayDrawImagePoints(Record& record) {
  ByteReader& reader = record.reader;
  reader.Skip(4);
  const auto unit = static_cast<Unit>(reader.S32Le() & 7);
  const Box source = ReadBox(reader, false);
  const std::uint32_t count = reader.U32Le();
  const auto points = ReadPoints(reader, count, record.HasNarrowPoints(), record.HasRelativePoints());
  if (points.size() >= 3) DrawImage(record, unit, source, std::span(points).first<3>());
}

void Player::DrawImage(Record& record, Unit unit, Box source, std::span<const Point, 3> corners) {
  if (const auto* stored = Get<ImageObject>(record.ObjectNumber())) {
    if (const auto metafile = StoredMetafile(stored->bytes)) {
      const Point a = corners[0], b = corners[1], c = corners[2];
      ForgetPicture();
      PlayNested(drawing_.context, *metafile, {b.x - a.x, b.y - a.y, c.x - a.x, c.y - a.y, a.x, a.y});
      return;
    }
  }
  const Pixels* const image = ImageOf(record.ObjectNumber());
  if (!image) return;
  // A part measured in other units than pixels is nearly always the whole.
  if (unit != Unit::Pixel)
    source = {0, 0, static_cast<double>(image->Width()), static_cast<double>(image->Height())};
  DrawParallelogram(drawing_.context, source, corners, *image);
}

}  // namespace lumidex::metafile::plus
