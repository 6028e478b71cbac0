#include "pictures/metafile/emf_player.h"
#include "pictures/metafile/emf_reading.h"
#include "pictures/metafile/letters.h"
#include "pictures/metafile/palette_reading.h"
#include "pictures/metafile/record_values.h"

namespace lumidex::metafile {
namespace {

Brush PlainBrush(std::uint32_t style, std::uint32_t colour, std::uint32_t hatch) {
  Brush brush{.colour = colour, .hatch = static_cast<int>(std::min<std::uint32_t>(hatch, 5))};
  brush.kind = style == brush_style::null      ? Ink::Kind::None
               : style == brush_style::hatched ? Ink::Kind::Hatched
                                               : Ink::Kind::Solid;
  return brush;
}

Font ReadFont(ByteReader& reader) {
  Font font;
  font.height = reader.S32Le();
  font.width = reader.S32Le();
  font.escapement = reader.S32Le();
  reader.Skip(4);
  font.weight = reader.S32Le();
  font.italic = reader.U8() != 0;
  font.underlined = reader.U8() != 0;
  font.struckOut = reader.U8() != 0;
  font.charset = reader.U8();
  reader.Skip(3);
  font.pitchAndFamily = reader.U8();
  font.family = NameFromUtf16(reader.Take(std::min<std::size_t>(reader.Remaining(), 64)));
  return font;
}

}  // namespace

Object EmfPlayer::ObjectAt(std::uint32_t number) const {
  constexpr std::uint32_t stock = 0x80000000;
  return number & stock ? StockObject(number & ~stock) : objects_.Get(number);
}

PaletteColours EmfPlayer::PaletteAt(std::uint32_t number) const {
  const Object object = ObjectAt(number);
  const auto* palette = std::get_if<PaletteColours>(&object);
  return palette ? *palette : nullptr;
}

void EmfPlayer::PlaySelectObject(Record& record) {
  drawing_.context.Select(ObjectAt(record.reader.U32Le()));
}

void EmfPlayer::PlayDeleteObject(Record& record) {
  objects_.Remove(record.reader.U32Le());
}

void EmfPlayer::PlaySetPaletteEntries(Record& record) {
  const PaletteColours palette = PaletteAt(record.reader.U32Le());
  if (!palette) return;
  const std::uint32_t first = record.reader.U32Le(), count = record.reader.U32Le();
  ReadPaletteEntries(record.reader, first, count, *palette);
}

void EmfPlayer::PlayResizePalette(Record& record) {
  const PaletteColours palette = PaletteAt(record.reader.U32Le());
  if (palette) ResizePalette(*palette, record.reader.U32Le(), drawing_.context.Budget());
}

void EmfPlayer::PlayCreatePen(Record& record) {
  ByteReader& reader = record.reader;
  const std::uint32_t number = reader.U32Le();
  Pen pen;
  pen.style = reader.U32Le() & (pen_style::dashMask | pen_style::capMask | pen_style::joinMask);
  if ((pen.style & pen_style::dashMask) >= pen_style::user) pen.style &= ~pen_style::dashMask;
  pen.width = reader.S32Le();
  reader.Skip(4);
  pen.ink.colour = drawing_.context.Colour(reader.U32Le());
  objects_.Set(number, std::move(pen));
}

void EmfPlayer::PlayCreateBrushIndirect(Record& record) {
  const std::uint32_t number = record.reader.U32Le(), style = record.reader.U32Le();
  const std::uint32_t colour = drawing_.context.Colour(record.reader.U32Le());
  objects_.Set(number, PlainBrush(style, colour, record.reader.U32Le()));
}

void EmfPlayer::PlayCreatePalette(Record& record) {
  const std::uint32_t number = record.reader.U32Le();
  record.reader.Skip(2);
  objects_.Set(number, ReadPalette(record.reader));
}

void EmfPlayer::PlayExtCreateFontIndirectW(Record& record) {
  const std::uint32_t number = record.reader.U32Le();
  objects_.Set(number, ReadFont(record.reader));
}

void EmfPlayer::PlayExtCreatePen(Record& record) {
  ByteReader& reader = record.reader;
  const std::uint32_t number = reader.U32Le();
  Pen pen;
  const BitmapPlace place = ReadPlace(reader);
  pen.style = reader.U32Le();
  pen.width = reader.U32Le();
  const std::uint32_t brushStyle = reader.U32Le(), colour = reader.U32Le();
  pen.ink = PlainBrush(brushStyle, drawing_.context.Colour(colour), reader.U32Le());
  if (brushStyle == brush_style::null) pen.style = pen_style::null;
  if (brushStyle >= brush_style::pattern && place.IsGiven()) {
    // With a bitmap, the colour says what the bitmap's own colours are.
    if (auto tile = KeptTile(DecodeAt(record, place, colour & 0xFFFF), drawing_.context.Budget())) {
      pen.ink.kind = Ink::Kind::Tiled;
      pen.ink.tile = *std::move(tile);
    }
  }
  const std::uint32_t dashes = std::min<std::uint32_t>(reader.U32Le(), 64);
  for (std::uint32_t i = 0; i < dashes && reader.Remaining() >= 4; ++i) pen.dashes.push_back(reader.U32Le());
  objects_.Set(number, std::move(pen));
}

void EmfPlayer::PlayCreateMonoBrush(Record& record) {
  const std::uint32_t number = record.reader.U32Le();
  objects_.Set(number, ReadTiledBrush(record, true));
}

void EmfPlayer::PlayCreateDIBPatternBrushPt(Record& record) {
  const std::uint32_t number = record.reader.U32Le();
  objects_.Set(number, ReadTiledBrush(record, false));
}

Object EmfPlayer::ReadTiledBrush(Record& record, bool takesTextColours) {
  const std::uint32_t usage = record.reader.U32Le();
  auto tile = KeptTile(DecodeAt(record, ReadPlace(record.reader), usage), drawing_.context.Budget());
  if (!tile) return Brush{};
  Brush brush{.kind = Ink::Kind::Tiled};
  brush.tile = *std::move(tile);
  brush.takesTextColours = takesTextColours && IsBlackAndWhite(brush.tile);
  return brush;
}

}  // namespace lumidex::metafile
