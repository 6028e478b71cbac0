#include "pictures/metafile/blits.h"
#include "pictures/metafile/emf_player.h"
#include "pictures/metafile/emf_reading.h"
#include "pictures/metafile/record_values.h"

namespace lumidex::metafile {
namespace {

int TernaryOperation(ByteReader& reader) {
  return static_cast<int>(reader.U32Le() >> 16 & 0xFF);
}

// A part of the source bitmap, through the map that was set on its own device.
Box MappedSource(Point from, Point size, const Matrix& map) {
  const Point a = map.Apply(from), b = map.Apply({from.x + size.x, from.y + size.y});
  return {a.x, a.y, b.x, b.y};
}

void MakeTransparent(Pixels& pixels, std::uint32_t colour) {
  for (int y = 0; y < pixels.Height(); ++y) {
    for (std::uint32_t& word : pixels.Row(y))
      if ((word & 0xFFFFFF) == colour) word = 0;
  }
  pixels.SetFormat(PixelFormat::Argb);
}

// Makes transparent what the mask shows black (or, when `inverted`, otherwise) and what lies beside it. The
// mask's own corner lies `offset` before the image's.
void ApplyMask(Pixels& image, const Pixels& mask, Point offset, bool inverted) {
  const int left = static_cast<int>(std::clamp(offset.x, -32767.0, 32767.0));
  const int top = static_cast<int>(std::clamp(offset.y, -32767.0, 32767.0));
  for (int y = 0; y < image.Height(); ++y) {
    const int maskY = y + top;
    const bool rowInside = maskY >= 0 && maskY < mask.Height();
    int maskX = left;
    for (std::uint32_t& word : image.Row(y)) {
      const bool inside = rowInside && maskX >= 0 && maskX < mask.Width();
      const bool one = inside && (mask.Row(maskY)[static_cast<std::size_t>(maskX)] & 0xFFFFFF) != 0;
      word = inside && one != inverted ? word | 0xFF000000u : 0;
      ++maskX;
    }
  }
  image.SetFormat(PixelFormat::Argb);
}

}  // namespace

EmfPlayer::BitmapPlace EmfPlayer::ReadPlace(ByteReader& reader) {
  BitmapPlace place;
  place.headerAt = reader.U32Le();
  place.headerBytes = reader.U32Le();
  place.bitsAt = reader.U32Le();
  place.bitsBytes = reader.U32Le();
  return place;
}

std::optional<EmbeddedImage> EmfPlayer::DecodeAt(const Record& record, const BitmapPlace& place,
                                                 unsigned usage) {
  if (!place.IsGiven()) return std::nullopt;
  const auto stretch = [&](std::uint32_t at, std::uint32_t count) {
    ByteReader reader(record.bytes);
    reader.Seek(at);
    return reader.Take(count);
  };
  return DecodeBitmap({.header = stretch(place.headerAt, place.headerBytes),
                       .bits = stretch(place.bitsAt, place.bitsBytes),
                       .usesPalette = usage == palettePositions,
                       .palette = State().palette},
                      drawing_.context.Budget());
}

void EmfPlayer::PlayBitBlt(Record& record) {
  PlayBlock(record, false);
}

void EmfPlayer::PlayStretchBlt(Record& record) {
  PlayBlock(record, true);
}

void EmfPlayer::PlayAlphaBlend(Record& record) {
  PlayBlend(record, false);
}

void EmfPlayer::PlayTransparentBlt(Record& record) {
  PlayBlend(record, true);
}

void EmfPlayer::PlayBlock(Record& record, bool stretched) {
  ByteReader& reader = record.reader;
  reader.Skip(boundsBytes);
  Blit blit;
  blit.target = ReadPoint(reader);
  blit.targetSize = ReadPoint(reader);
  blit.rasterOperation = TernaryOperation(reader);
  const Point from = ReadPoint(reader);
  const Matrix map = ReadMatrix(reader);
  reader.Skip(4);
  const std::uint32_t usage = reader.U32Le();
  const BitmapPlace place = ReadPlace(reader);
  const Point size = stretched ? ReadPoint(reader) : blit.targetSize;
  if (!UsesSource(blit.rasterOperation))
    return TransferPattern(drawing_.context, TargetBox(blit), blit.rasterOperation);
  const auto image = DecodeAt(record, place, usage);
  if (!image) return;
  blit.source = MappedSource(from, size, map);
  Transfer(drawing_.context, blit, image->pixels);
}

void EmfPlayer::PlayMaskBlt(Record& record) {
  ByteReader& reader = record.reader;
  reader.Skip(boundsBytes);
  Blit blit;
  blit.target = ReadPoint(reader);
  blit.targetSize = ReadPoint(reader);
  // Two operations: for the mask's ones and, in the highest byte, its zeros.
  const std::uint32_t operations = reader.U32Le();
  blit.rasterOperation = static_cast<int>(operations >> 16 & 0xFF);
  const int zerosOperation = static_cast<int>(operations >> 24);
  const Point from = ReadPoint(reader);
  const Matrix map = ReadMatrix(reader);
  reader.Skip(4);
  const std::uint32_t usage = reader.U32Le();
  const BitmapPlace place = ReadPlace(reader);
  const Point maskFrom = ReadPoint(reader);
  const std::uint32_t maskUsage = reader.U32Le();
  const BitmapPlace maskPlace = ReadPlace(reader);
  auto image = UsesSource(blit.rasterOperation) || UsesSource(zerosOperation) ? DecodeAt(record, place, usage)
                                                                              : std::nullopt;
  blit.source = MappedSource(from, blit.targetSize, map);
  const auto mask = DecodeAt(record, maskPlace, maskUsage);
  if (!mask && !UsesSource(blit.rasterOperation))
    return TransferPattern(drawing_.context, TargetBox(blit), blit.rasterOperation);
  if (!mask) {
    if (image) Transfer(drawing_.context, blit, image->pixels);
    return;
  }
  const bool copies = blit.rasterOperation == sourceCopy && zerosOperation == keepPicture;
  const bool inverted = blit.rasterOperation == keepPicture && zerosOperation == sourceCopy;
  if (image && (copies || inverted)) {
    // Nearly always so, and cheaper with the mask as the image's transparency.
    ApplyMask(image->pixels, mask->pixels, {maskFrom.x - from.x, maskFrom.y - from.y}, inverted);
    return Blend(drawing_.context, blit, image->pixels, 1);
  }
  TransferMasked(drawing_.context, blit, image ? &image->pixels : nullptr, {mask->pixels, maskFrom},
                 zerosOperation);
}

void EmfPlayer::PlayPlgBlt(Record& record) {
  ByteReader& reader = record.reader;
  reader.Skip(boundsBytes);
  std::array<Point, 3> corners{};
  for (Point& corner : corners) corner = ReadPoint(reader);
  const Point from = ReadPoint(reader), size = ReadPoint(reader);
  const Matrix map = ReadMatrix(reader);
  reader.Skip(4);
  const std::uint32_t usage = reader.U32Le();
  const BitmapPlace place = ReadPlace(reader);
  const Point maskFrom = ReadPoint(reader);
  const std::uint32_t maskUsage = reader.U32Le();
  const BitmapPlace maskPlace = ReadPlace(reader);
  auto image = DecodeAt(record, place, usage);
  if (!image) return;
  if (const auto mask = DecodeAt(record, maskPlace, maskUsage))
    ApplyMask(image->pixels, mask->pixels, {maskFrom.x - from.x, maskFrom.y - from.y}, false);
  DrawParallelogram(drawing_.context, MappedSource(from, size, map), corners, image->pixels);
}

void EmfPlayer::PlayBlend(Record& record, bool byColour) {
  ByteReader& reader = record.reader;
  reader.Skip(boundsBytes);
  Blit blit;
  blit.target = ReadPoint(reader);
  blit.targetSize = ReadPoint(reader);
  const std::uint32_t how = reader.U32Le();
  const Point from = ReadPoint(reader);
  const Matrix map = ReadMatrix(reader);
  reader.Skip(4);
  const std::uint32_t usage = reader.U32Le();
  const BitmapPlace place = ReadPlace(reader);
  const Point size = ReadPoint(reader);
  auto image = DecodeAt(record, place, usage);
  if (!image) return;
  blit.source = MappedSource(from, size, map);
  if (byColour) {
    MakeTransparent(image->pixels, drawing_.context.Colour(how));
    return Blend(drawing_.context, blit, image->pixels, 1);
  }
  const double opacity = (how >> 16 & 0xFF) / 255.0;
  const bool ownTransparency = (how >> 24 & 1) != 0;
  // The bitmap's own alpha comes multiplied in already, in the byte that plain bitmaps leave unused.
  if (ownTransparency) {
    ByteReader header(record.bytes);
    header.Seek(place.headerAt + 14);
    const bool deep = header.U16Le() == 32;
    if (deep) ReadAlpha(record, place, image->pixels, image->topDown);
  }
  Blend(drawing_.context, blit, image->pixels, opacity);
}

void EmfPlayer::ReadAlpha(const Record& record, const BitmapPlace& place, Pixels& pixels, bool topDown) {
  ByteReader bits(record.bytes);
  bits.Seek(place.bitsAt);
  for (int y = 0; y < pixels.Height(); ++y) {
    for (std::uint32_t& word : pixels.Row(topDown ? y : pixels.Height() - 1 - y)) word = bits.U32Le();
  }
  // Colours above their alpha can not be; they would make the renderer overflow.
  for (int y = 0; y < pixels.Height(); ++y) {
    for (std::uint32_t& word : pixels.Row(y)) {
      const std::uint32_t alpha = word >> 24;
      const auto capped = [&](int shift) { return std::min(word >> shift & 0xFF, alpha) << shift; };
      word = alpha << 24 | capped(16) | capped(8) | capped(0);
    }
  }
  pixels.SetFormat(PixelFormat::ArgbPremultiplied);
}

void EmfPlayer::PlayStretchDIBits(Record& record) {
  ByteReader& reader = record.reader;
  reader.Skip(boundsBytes);
  Blit blit;
  blit.target = ReadPoint(reader);
  const Point from = ReadPoint(reader), size = ReadPoint(reader);
  const BitmapPlace place = ReadPlace(reader);
  const std::uint32_t usage = reader.U32Le();
  blit.rasterOperation = TernaryOperation(reader);
  blit.targetSize = ReadPoint(reader);
  if (!UsesSource(blit.rasterOperation))
    return TransferPattern(drawing_.context, TargetBox(blit), blit.rasterOperation);
  const auto image = DecodeAt(record, place, usage);
  if (!image) return;
  // The part is counted from the bitmap's first stored row, which is its lowest.
  const double top = image->topDown ? from.y : image->pixels.Height() - from.y - size.y;
  blit.source = {from.x, top, from.x + size.x, top + size.y};
  Transfer(drawing_.context, blit, image->pixels);
}

void EmfPlayer::PlaySetDIBitsToDevice(Record& record) {
  ByteReader& reader = record.reader;
  reader.Skip(boundsBytes);
  Blit blit;
  blit.target = ReadPoint(reader);
  const Point from = ReadPoint(reader);
  const Point size = ReadPoint(reader);
  const BitmapPlace place = ReadPlace(reader);
  const std::uint32_t usage = reader.U32Le();
  const auto image = DecodeAt(record, place, usage);
  if (!image) return;
  const double top = image->topDown ? from.y : image->pixels.Height() - from.y - size.y;
  blit.source = {from.x, top, from.x + size.x, top + size.y};
  // The size is one in pixels of the device, whatever a logical unit is.
  const Point scale = drawing_.context.DeviceScale();
  if (!(scale.x > 0 && scale.y > 0)) return;
  blit.targetSize = {size.x / scale.x, size.y / scale.y};
  Transfer(drawing_.context, blit, image->pixels);
}

}  // namespace lumidex::metafile
