#include "pictures/metafile/embedded_image.h"
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

Brush WmfPlayer::TiledBrush(ByteReader& record, bool deviceBitmap) {
  DeviceState& state = drawing_.State();
  Brush brush{.kind = Ink::Kind::Tiled};
  std::optional<EmbeddedImage> image;
  WorkBudget& budget = drawing_.Sheet().Budget();
  if (deviceBitmap) {
    if (auto pixels = DecodeDeviceBitmap(record.Take(record.Remaining()), brushBitmapHeader, state.textColor,
                                         state.backgroundColor, budget))
      image = EmbeddedImage{*std::move(pixels), true};
  } else {
    constexpr unsigned patternStyle = 3;
    brush.takesTextColors = record.U16Le() == patternStyle;
    const bool usesPalette = record.U16Le() == 1;
    image = DecodeBitmap({.header = record.Take(record.Remaining()),
                          .bits = {},
                          .usesPalette = usesPalette,
                          .palette = state.palette},
                         budget);
  }
  auto tile = KeptTile(std::move(image), budget);
  if (!tile) return Brush{};
  brush.tile = *std::move(tile);
  brush.takesTextColors = brush.takesTextColors && IsBlackAndWhite(brush.tile);
  return brush;
}

bool WmfPlayer::PlayBitmap(unsigned function, ByteReader& record) {
  switch (function) {
    case 0x061D: {
      const int operation = TernaryOperation(record);
      const Point size = ReversedPoint(record), at = ReversedPoint(record);
      drawing_.TransferPattern({at.x, at.y, at.x + size.x, at.y + size.y}, operation);
      return true;
    }
    case 0x0922:
      PlayBlock(record, false, true);
      return true;
    case 0x0940:
      PlayBlock(record, false, false);
      return true;
    case 0x0B23:
      PlayBlock(record, true, true);
      return true;
    case 0x0B41:
      PlayBlock(record, true, false);
      return true;
    case 0x0F43:
      PlayStretchDib(record);
      return true;
    case 0x0D33:
      PlaySetDibToDevice(record);
      return true;
    default:
      return false;
  }
}

void WmfPlayer::PlayBlock(ByteReader& record, bool stretched, bool deviceBitmap) {
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
  const Box target{blit.target.x, blit.target.y, blit.target.x + blit.targetSize.x,
                   blit.target.y + blit.targetSize.y};
  if (!hasBitmap || !UsesSource(blit.rasterOperation))
    return drawing_.TransferPattern(target, blit.rasterOperation);
  if (!stretched) sourceSize = blit.targetSize;
  blit.source = {from.x, from.y, from.x + sourceSize.x, from.y + sourceSize.y};
  DeviceState& state = drawing_.State();
  WorkBudget& budget = drawing_.Sheet().Budget();
  const Bytes bitmap = record.Take(record.Remaining());
  if (deviceBitmap) {
    const auto pixels =
        DecodeDeviceBitmap(bitmap, deviceBitmapHeader, state.textColor, state.backgroundColor, budget);
    if (pixels) drawing_.Transfer(blit, *pixels);
  } else if (const auto image =
                 DecodeBitmap({.header = bitmap, .bits = {}, .palette = state.palette}, budget)) {
    drawing_.Transfer(blit, image->pixels);
  }
}

void WmfPlayer::PlayStretchDib(ByteReader& record) {
  Blit blit;
  blit.rasterOperation = TernaryOperation(record);
  const bool usesPalette = record.U16Le() == 1;
  const Point sourceSize = ReversedPoint(record), from = ReversedPoint(record);
  blit.targetSize = ReversedPoint(record);
  blit.target = ReversedPoint(record);
  const auto image = DecodeBitmap({.header = record.Take(record.Remaining()),
                                   .bits = {},
                                   .usesPalette = usesPalette,
                                   .palette = drawing_.State().palette},
                                  drawing_.Sheet().Budget());
  if (!image) return;
  // The part is counted from the bitmap's first stored row, which is its lowest.
  const double top = image->topDown ? from.y : image->pixels.Height() - from.y - sourceSize.y;
  blit.source = {from.x, top, from.x + sourceSize.x, top + sourceSize.y};
  drawing_.Transfer(blit, image->pixels);
}

void WmfPlayer::PlaySetDibToDevice(ByteReader& record) {
  const bool usesPalette = record.U16Le() == 1;
  record.Skip(4);
  const Point from = ReversedPoint(record), size = ReversedPoint(record), at = ReversedPoint(record);
  const auto image = DecodeBitmap({.header = record.Take(record.Remaining()),
                                   .bits = {},
                                   .usesPalette = usesPalette,
                                   .palette = drawing_.State().palette},
                                  drawing_.Sheet().Budget());
  if (!image) return;
  const double top = image->topDown ? from.y : image->pixels.Height() - from.y - size.y;
  // The size is one in pixels of the device, whatever a logical unit is.
  const Point scale = drawing_.DeviceScale();
  if (!(scale.x > 0 && scale.y > 0)) return;
  drawing_.Transfer({.target = at,
                     .targetSize = {size.x / scale.x, size.y / scale.y},
                     .source = {from.x, top, from.x + size.x, top + size.y}},
                    image->pixels);
}

}  // namespace lumidex::metafile
