// Path brackets, regions and the clip.

#include <algorithm>

#include "pictures/metafile/emf_player.h"
#include "pictures/metafile/emf_reading.h"
#include "pictures/metafile/regions.h"

namespace lumidex::metafile {
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

ClipMode ReadClipMode(ByteReader& reader) {
  return static_cast<ClipMode>(std::clamp<std::uint32_t>(reader.U32Le(), 1, 5));
}

// Their bounds, and the length of the region data.
constexpr std::size_t bytesBeforeRegion = boundsBytes + 4;

}  // namespace

void EmfPlayer::PlayBeginPath(Record&) {
  drawing_.bracket.Begin();
}

void EmfPlayer::PlayEndPath(Record&) {
  drawing_.bracket.End();
}

void EmfPlayer::PlayCloseFigure(Record&) {
  drawing_.bracket.CloseFigure();
}

void EmfPlayer::PlayFillPath(Record&) {
  drawing_.bracket.Draw(true, false);
}

void EmfPlayer::PlayStrokeAndFillPath(Record&) {
  drawing_.bracket.Draw(true, true);
}

void EmfPlayer::PlayStrokePath(Record&) {
  drawing_.bracket.Draw(false, true);
}

void EmfPlayer::PlayWidenPath(Record&) {
  drawing_.bracket.Widen();
}

void EmfPlayer::PlaySelectClipPath(Record& record) {
  drawing_.bracket.Clip(ReadClipMode(record.reader));
}

void EmfPlayer::PlayAbortPath(Record&) {
  drawing_.bracket.Abort();
}

void EmfPlayer::PlayOffsetClipRgn(Record& record) {
  drawing_.context.OffsetClip(ReadPoint(record.reader));
}

void EmfPlayer::PlaySetMetaRgn(Record&) {
  drawing_.context.KeepClip();
}

void EmfPlayer::PlayExcludeClipRect(Record& record) {
  drawing_.context.ClipBox(ReadBox(record.reader), ClipMode::Difference);
}

void EmfPlayer::PlayIntersectClipRect(Record& record) {
  drawing_.context.ClipBox(ReadBox(record.reader), ClipMode::And);
}

void EmfPlayer::PlayExtSelectClipRgn(Record& record) {
  const std::uint32_t bytes = record.reader.U32Le();
  const ClipMode mode = ReadClipMode(record.reader);
  if (bytes == 0) return drawing_.context.ResetClip();
  drawing_.context.ClipRegion(ReadRegion(record.reader), mode, true);
}

void EmfPlayer::PlayFillRgn(Record& record) {
  record.reader.Skip(bytesBeforeRegion);
  const Object object = ObjectAt(record.reader.U32Le());
  if (const auto* brush = std::get_if<Brush>(&object))
    FillRegion(drawing_.context, ReadRegion(record.reader), *brush);
}

void EmfPlayer::PlayFrameRgn(Record& record) {
  record.reader.Skip(bytesBeforeRegion);
  const Object object = ObjectAt(record.reader.U32Le());
  const Point edge = ReadPoint(record.reader);
  if (const auto* brush = std::get_if<Brush>(&object))
    FrameRegion(drawing_.context, ReadRegion(record.reader), *brush, edge);
}

void EmfPlayer::PlayInvertRgn(Record& record) {
  record.reader.Skip(bytesBeforeRegion);
  InvertRegion(drawing_.context, ReadRegion(record.reader));
}

void EmfPlayer::PlayPaintRgn(Record& record) {
  record.reader.Skip(bytesBeforeRegion);
  FillRegion(drawing_.context, ReadRegion(record.reader), State().brush);
}

}  // namespace lumidex::metafile
