#include "pictures/metafile/blits.h"
#include "pictures/metafile/embedded_image.h"
#include "pictures/metafile/record_values.h"
#include "pictures/metafile/wmf_player.h"
#include "pictures/metafile/wmf_reading.h"

namespace lumidex::metafile {
namespace {

// Width, height and the like of a device bitmap, before its pixels.
constexpr std::size_t deviceBitmapHeader = 10;
// As a pattern brush stores it, a device bitmap has its pixels after a whole structure and a gap.
constexpr std::size_t brushBitmapHeader = 32;

int TernaryOperation(ByteReader& record) {
  return static_cast<int>(record.U32Le() >> 16 & 0xFF);
}

}  // namespace

Brush WmfPlayer::TiledBrush(ByteReader& record, BitmapKind kind) {
  DeviceState& state = State();
  Brush brush{.kind = Ink::Kind::Tiled};
  std::optional<EmbeddedImage> image;
  WorkBudget& budget = drawing_.context.Budget();
  if (kind == BitmapKind::Device) {
    if (auto pixels = DecodeDeviceBitmap(record.Take(record.Remaining()), brushBitmapHeader, state.textColour,
                                         state.backgroundColour, budget))
      image = EmbeddedImage{*std::move(pixels), true};
  } else {
    brush.takesTextColours = record.U16Le() == brush_style::pattern;
    const bool usesPalette = record.U16Le() == palettePositions;
    image = DecodeBitmap({.header = record.Take(record.Remaining()),
                          .bits = {},
                          .usesPalette = usesPalette,
                          .palette = state.palette},
                         budget);
  }
  auto tile = KeptTile(std::move(image), budget);
  if (!tile) return Brush{};
  brush.tile = *std::move(tile);
  brush.takesTextColours = brush.takesTextColours && IsBlackAndWhite(brush.tile);
  return brush;
}

void WmfPlayer::PlayPatBlt(ByteReader& record) {
  const int operation = TernaryOperation(record);
  const Point size = ReversedPoint(record), at = ReversedPoint(record);
  TransferPattern(drawing_.context, {at.x, at.y, at.x + size.x, at.y + size.y}, operation);
}

void WmfPlayer::PlayBitBlt(ByteReader& record) {
  PlayBlock(record, false, BitmapKind::Device);
}

void WmfPlayer::PlayDibBitBlt(ByteReader& record) {
  PlayBlock(record, false, BitmapKind::DeviceIndependent);
}

void WmfPlayer::PlayStretchBlt(ByteReader& record) {
  PlayBlock(record, true, BitmapKind::Device);
}

void WmfPlayer::PlayDibStretchBlt(ByteReader& record) {
  PlayBlock(record, true, BitmapKind::DeviceIndependent);
}

void WmfPlayer::PlayBlock(ByteReader& record, bool stretched, BitmapKind kind) {
  // Without a bitmap the record is exactly this long, and holds one unused word.
  const std::size_t bytesWithoutBitmap = stretched ? 22 : 18;
  const bool hasBitmap = record.Remaining() > bytesWithoutBitmap;
  Blit blit;
  blit.rasterOperation = TernaryOperation(record);
  Point sourceSize;
  if (stretched) sourceSize = ReversedPoint(record);
  const Point from = ReversedPoint(record);
  if (!hasBitmap) record.Skip(2);
  blit.targetSize = ReversedPoint(record);
  blit.target = ReversedPoint(record);
  if (!hasBitmap || !UsesSource(blit.rasterOperation))
    return TransferPattern(drawing_.context, TargetBox(blit), blit.rasterOperation);
  if (!stretched) sourceSize = blit.targetSize;
  blit.source = {from.x, from.y, from.x + sourceSize.x, from.y + sourceSize.y};
  DeviceState& state = State();
  WorkBudget& budget = drawing_.context.Budget();
  const Bytes bitmap = record.Take(record.Remaining());
  if (kind == BitmapKind::Device) {
    const auto pixels =
        DecodeDeviceBitmap(bitmap, deviceBitmapHeader, state.textColour, state.backgroundColour, budget);
    if (pixels) Transfer(drawing_.context, blit, *pixels);
  } else if (const auto image =
                 DecodeBitmap({.header = bitmap, .bits = {}, .palette = state.palette}, budget)) {
    Transfer(drawing_.context, blit, image->pixels);
  }
}

void WmfPlayer::PlayStretchDib(ByteReader& record) {
  Blit blit;
  blit.rasterOperation = TernaryOperation(record);
  const bool usesPalette = record.U16Le() == palettePositions;
  const Point sourceSize = ReversedPoint(record), from = ReversedPoint(record);
  blit.targetSize = ReversedPoint(record);
  blit.target = ReversedPoint(record);
  const auto image = DecodeBitmap({.header = record.Take(record.Remaining()),
                                   .bits = {},
                                   .usesPalette = usesPalette,
                                   .palette = State().palette},
                                  drawing_.context.Budget());
  if (!image) return;
  // The part is counted from the bitmap's first stored row, which is its lowest.
  const double top = image->topDown ? from.y : image->pixels.Height() - from.y - sourceSize.y;
  blit.source = {from.x, top, from.x + sourceSize.x, top + sourceSize.y};
  Transfer(drawing_.context, blit, image->pixels);
}

void WmfPlayer::PlaySetDibToDev(ByteReader& record) {
  const bool usesPalette = record.U16Le() == palettePositions;
  record.Skip(4);
  const Point from = ReversedPoint(record), size = ReversedPoint(record), at = ReversedPoint(record);
  const auto image = DecodeBitmap({.header = record.Take(record.Remaining()),
                                   .bits = {},
                                   .usesPalette = usesPalette,
                                   .palette = State().palette},
                                  drawing_.context.Budget());
  if (!image) return;
  const double top = image->topDown ? from.y : image->pixels.Height() - from.y - size.y;
  // The size is one in pixels of the device, whatever a logical unit is.
  const Point scale = drawing_.context.DeviceScale();
  if (!(scale.x > 0 && scale.y > 0)) return;
  Transfer(drawing_.context,
           {.target = at,
            .targetSize = {size.x / scale.x, size.y / scale.y},
            .source = {from.x, top, from.x + size.x, top + size.y}},
           image->pixels);
}

}  // namespace lumidex::metafile
