#include "pictures/metafile/emf_player.h"

#include "pictures/metafile/emf_reading.h"
#include "pictures/metafile/nested.h"

namespace lumidex::metafile {
namespace {

constexpr std::uint32_t signature = 0x464D4520;  // " EMF"
constexpr std::uint32_t smallestHeader = 88;
constexpr std::uint32_t recordHeaderBytes = 8;
constexpr unsigned endOfFile = 14, commentType = 70;
constexpr std::uint32_t plusMark = 0x2B464D45;    // "EMF+"
constexpr std::uint32_t publicMark = 0x43494447;  // "GDIC"
constexpr std::uint32_t severalFormats = 0x40000004;

}  // namespace

std::optional<EmfHeader> ReadEmfHeader(Bytes head) {
  ByteReader reader(head);
  EmfHeader header;
  if (reader.U32Le() != 1) return std::nullopt;
  header.recordsAt = reader.U32Le();
  header.bounds = ReadBox(reader);
  header.frame = ReadBox(reader);
  if (reader.U32Le() != signature || header.recordsAt < smallestHeader) return std::nullopt;
  reader.Seek(72);
  header.devicePixels = ReadPoint(reader);
  header.deviceMillimetres = ReadPoint(reader);
  if (reader.WasCut()) return std::nullopt;
  return header;
}

void EmfPlayer::Play(Bytes records) {
  WorkBudget& budget = drawing_.Sheet().Budget();
  ByteReader reader(records);
  while (reader.Remaining() >= recordHeaderBytes) {
    const std::size_t start = reader.Position();
    const unsigned type = reader.U32Le();
    const std::uint32_t size = reader.U32Le();
    if (size < recordHeaderBytes || type == endOfFile) return;
    reader.Seek(start);
    // Of a cut file's last record only a bitmap is worth showing in part; of others, a part means something
    // else.
    const bool holdsBitmap = (type >= 76 && type <= 81) || type == 114;
    if (size > reader.Remaining() && !holdsBitmap) return;
    if (!budget.Spend(CostOfRecord(std::min<std::size_t>(size, reader.Remaining())))) return;
    const Bytes bytes = reader.Take(size);
    Record record{bytes, ByteReader(bytes)};
    record.reader.Skip(recordHeaderBytes);
    PlayRecord(type, record);
  }
}

void EmfPlayer::PlayRecord(unsigned type, Record record) {
  ByteReader& reader = record.reader;
  if (type == commentType) return PlayComment(reader);
  PlaySetting(type, reader) || PlayMapping(type, reader) || PlayShape(type, reader) ||
      PlayPoints(type, reader) || PlayPath(type, reader) || PlayClip(type, reader) ||
      PlayObject(type, record) || PlayText(type, record) || PlayBitmap(type, record);
}

void EmfPlayer::PlayComment(ByteReader& reader) {
  const Bytes bytes = reader.Take(reader.U32Le());
  ByteReader comment(bytes);
  const std::uint32_t mark = comment.U32Le();
  if (mark == plusMark) plus_.Play(comment.Take(comment.Remaining()));
  if (mark == publicMark && comment.U32Le() == severalFormats) PlayFormats(bytes, comment);
}

void EmfPlayer::PlayFormats(Bytes comment, ByteReader& reader) {
  constexpr std::size_t descriptionBytes = 16;
  plus_.ForgetPicture();
  const Box box = ReadBox(reader);
  const Matrix place{.xx = box.Width(), .yy = box.Height(), .x0 = box.left, .y0 = box.top};
  for (std::uint32_t count = reader.U32Le(); count > 0 && reader.Remaining() >= descriptionBytes; --count) {
    const bool isMetafile = reader.U32Le() == signature;
    reader.Skip(4);
    const std::uint32_t bytes = reader.U32Le();
    ByteReader format(comment);
    format.Seek(reader.U32Le());
    // The first that can be shown stands for all.
    if (isMetafile && PlayNested(drawing_, format.Take(bytes), place)) return;
  }
}

bool EmfPlayer::PlaySetting(unsigned type, ByteReader& reader) {
  DeviceState& state = drawing_.State();
  switch (type) {
    case 13:
      state.brushOrigin = ReadPoint(reader);
      return true;
    case 18:
      state.opaqueBackground = reader.U32Le() == 2;
      return true;
    case 19:
      state.fillRule = reader.U32Le() == 2 ? FillRule::Winding : FillRule::EvenOdd;
      return true;
    case 20:
      state.rasterOperation = static_cast<int>(reader.U32Le() & 0xFF);
      return true;
    case 22:
      state.textAlign = reader.U32Le();
      return true;
    case 24:
      state.textColor = drawing_.Color(reader.U32Le());
      return true;
    case 25:
      state.backgroundColor = drawing_.Color(reader.U32Le());
      return true;
    case 33:
      drawing_.Save();
      return true;
    case 34:
      drawing_.Restore(reader.S32Le());
      return true;
    case 115:
      state.rightToLeft = (reader.U32Le() & 1) != 0;
      return true;
    case 120: {
      const double extra = reader.S32Le(), blanks = reader.S32Le();
      state.blankSpacing = blanks > 0 ? extra / blanks : 0;
      return true;
    }
    case 57:
      state.clockwiseArcs = reader.U32Le() == 2;
      return true;
    case 58:
      // A whole number in the files that exist, though the manual says a float.
      state.miterLimit = std::clamp<double>(reader.U32Le(), 1, 1000);
      return true;
    default:
      return false;
  }
}

bool EmfPlayer::PlayMapping(unsigned type, ByteReader& reader) {
  Mapping& mapping = drawing_.State().mapping;
  Matrix& world = drawing_.State().world;
  const auto scale = [&](Point& extent) {
    const double across = reader.S32Le(), acrossBy = reader.S32Le();
    const double down = reader.S32Le(), downBy = reader.S32Le();
    if (across != 0 && acrossBy != 0) extent.x *= across / acrossBy;
    if (down != 0 && downBy != 0) extent.y *= down / downBy;
  };
  switch (type) {
    case 9:
      mapping.windowExtent = ReadPoint(reader);
      return true;
    case 10:
      mapping.windowOrigin = ReadPoint(reader);
      return true;
    case 11:
      mapping.viewportExtent = ReadPoint(reader);
      return true;
    case 12:
      mapping.viewportOrigin = ReadPoint(reader);
      return true;
    case 17:
      mapping.mode = static_cast<int>(reader.U32Le() & 0xFF);
      return true;
    case 31:
      scale(mapping.viewportExtent);
      return true;
    case 32:
      scale(mapping.windowExtent);
      return true;
    case 35:
      world = ReadMatrix(reader);
      return true;
    case 36: {
      const Matrix matrix = ReadMatrix(reader);
      const std::uint32_t mode = reader.U32Le();
      if (mode == 1) world = {};
      if (mode == 2) world = matrix.Then(world);
      if (mode == 3) world = world.Then(matrix);
      if (mode == 4) world = matrix;
      return true;
    }
    default:
      return false;
  }
}

bool EmfPlayer::PlayPath(unsigned type, ByteReader& reader) {
  switch (type) {
    case 59:
      drawing_.BeginPath();
      return true;
    case 60:
      drawing_.EndPath();
      return true;
    case 61:
      drawing_.CloseFigure();
      return true;
    case 62:
      drawing_.DrawPath(true, false);
      return true;
    case 63:
      drawing_.DrawPath(true, true);
      return true;
    case 64:
      drawing_.DrawPath(false, true);
      return true;
    case 65:  // curves become lines, which looks the same
      return true;
    case 66:
      drawing_.WidenPath();
      return true;
    case 67:
      drawing_.ClipToPath(static_cast<ClipMode>(std::clamp<std::uint32_t>(reader.U32Le(), 1, 5)));
      return true;
    case 68:
      drawing_.AbortPath();
      return true;
    default:
      return false;
  }
}

namespace {

// The boxes of region data at the reader.
std::vector<Box> ReadRegion(ByteReader& reader) {
  const std::uint32_t headerBytes = reader.U32Le();
  reader.Skip(4);
  const std::uint32_t count = reader.U32Le();
  reader.Skip(headerBytes >= 12 ? std::min<std::size_t>(headerBytes - 12, reader.Remaining()) : 0);
  std::vector<Box> boxes(std::min<std::size_t>(count, reader.Remaining() / 16));
  for (Box& box : boxes) box = ReadBox(reader);
  return boxes;
}

}  // namespace

bool EmfPlayer::PlayClip(unsigned type, ByteReader& reader) {
  switch (type) {
    case 26:
      drawing_.OffsetClip(ReadPoint(reader));
      return true;
    case 28:
      drawing_.KeepClip();
      return true;
    case 29:
      drawing_.ClipBox(ReadBox(reader), ClipMode::Difference);
      return true;
    case 30:
      drawing_.ClipBox(ReadBox(reader), ClipMode::And);
      return true;
    case 71:
    case 72: {
      reader.Skip(20);
      const Object object = ObjectAt(reader.U32Le());
      const auto* brush = std::get_if<Brush>(&object);
      const Point edge = type == 72 ? ReadPoint(reader) : Point{};
      if (!brush) return true;
      if (type == 72) {
        drawing_.FrameRegion(ReadRegion(reader), *brush, edge);
      } else {
        drawing_.FillRegion(ReadRegion(reader), *brush);
      }
      return true;
    }
    case 73:
      reader.Skip(20);
      drawing_.InvertRegion(ReadRegion(reader));
      return true;
    case 74:
      reader.Skip(20);
      drawing_.FillRegion(ReadRegion(reader), drawing_.State().brush);
      return true;
    case 75: {
      const std::uint32_t bytes = reader.U32Le();
      const auto mode = static_cast<ClipMode>(std::clamp<std::uint32_t>(reader.U32Le(), 1, 5));
      if (bytes == 0) {
        drawing_.ResetClip();
      } else {
        drawing_.ClipRegion(ReadRegion(reader), mode, true);
      }
      return true;
    }
    default:
      return false;
  }
}

}  // namespace lumidex::metafile
