#include "pictures/metafile/emf_player.h"
#include "pictures/metafile/emf_reading.h"
#include "pictures/metafile/letters.h"
#include "pictures/metafile/palette_reading.h"

namespace lumidex::metafile {
namespace {

Brush PlainBrush(std::uint32_t style, std::uint32_t color, std::uint32_t hatch) {
  Brush brush{.color = color, .hatch = static_cast<int>(std::min<std::uint32_t>(hatch, 5))};
  brush.kind = style == 1 ? Ink::Kind::None : style == 2 ? Ink::Kind::Hatched : Ink::Kind::Solid;
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

bool EmfPlayer::PlayObject(unsigned type, Record& record) {
  ByteReader& reader = record.reader;
  const auto isCreation = [](unsigned number) {
    return number == 38 || number == 39 || number == 49 || number == 82 || (number >= 93 && number <= 95);
  };
  if (type == 37) {
    SelectObject(reader.U32Le());
    return true;
  }
  if (type == 40) {
    objects_.Remove(reader.U32Le());
    return true;
  }
  if (type == 48) {
    SelectObject(reader.U32Le());
    return true;
  }
  if (type == 50 || type == 51) {
    const Object object = ObjectAt(reader.U32Le());
    if (const auto* palette = std::get_if<PaletteColors>(&object)) {
      const std::uint32_t first = reader.U32Le();
      if (type == 50) {
        const std::uint32_t count = reader.U32Le();
        ReadPaletteEntries(reader, first, count, **palette);
      } else {
        ResizePalette(**palette, first, drawing_.Sheet().Budget());
      }
    }
    return true;
  }
  if (!isCreation(type)) return false;
  const std::uint32_t number = reader.U32Le();
  Object object;
  if (type == 38) {
    Pen pen;
    pen.style = reader.U32Le() & (pen_style::dashMask | pen_style::capMask | pen_style::joinMask);
    if ((pen.style & pen_style::dashMask) >= pen_style::user) pen.style &= ~pen_style::dashMask;
    pen.width = reader.S32Le();
    reader.Skip(4);
    pen.ink.color = drawing_.Color(reader.U32Le());
    object = pen;
  } else if (type == 39) {
    const std::uint32_t style = reader.U32Le(), color = drawing_.Color(reader.U32Le());
    object = PlainBrush(style, color, reader.U32Le());
  } else if (type == 49) {
    reader.Skip(2);
    object = ReadPalette(reader);
  } else if (type == 82) {
    object = ReadFont(reader);
  } else if (type == 95) {
    object = ReadExtendedPen(record);
  } else {
    object = ReadTiledBrush(record, type == 93);
  }
  objects_.Set(number, std::move(object));
  return true;
}

Object EmfPlayer::ObjectAt(std::uint32_t number) const {
  constexpr std::uint32_t stock = 0x80000000;
  return number & stock ? StockObject(number & ~stock) : objects_.Get(number);
}

void EmfPlayer::SelectObject(std::uint32_t number) {
  drawing_.Select(ObjectAt(number));
}

Object EmfPlayer::ReadExtendedPen(Record& record) {
  ByteReader& reader = record.reader;
  Pen pen;
  const BitmapPlace place = ReadPlace(reader);
  pen.style = reader.U32Le();
  pen.width = reader.U32Le();
  const std::uint32_t brushStyle = reader.U32Le(), color = reader.U32Le();
  pen.ink = PlainBrush(brushStyle, drawing_.Color(color), reader.U32Le());
  if (brushStyle == 1) pen.style = pen_style::null;
  if (brushStyle >= 3 && place.IsGiven()) {
    // With a bitmap, the colour says what the bitmap's own colours are.
    if (auto tile = KeptTile(DecodeAt(record, place, color & 0xFFFF), drawing_.Sheet().Budget())) {
      pen.ink.kind = Ink::Kind::Tiled;
      pen.ink.tile = *std::move(tile);
    }
  }
  const std::uint32_t dashes = std::min<std::uint32_t>(reader.U32Le(), 64);
  for (std::uint32_t i = 0; i < dashes && reader.Remaining() >= 4; ++i) pen.dashes.push_back(reader.U32Le());
  return pen;
}

Object EmfPlayer::ReadTiledBrush(Record& record, bool takesTextColors) {
  const std::uint32_t usage = record.reader.U32Le();
  auto tile = KeptTile(DecodeAt(record, ReadPlace(record.reader), usage), drawing_.Sheet().Budget());
  if (!tile) return Brush{};
  Brush brush{.kind = Ink::Kind::Tiled};
  brush.tile = *std::move(tile);
  brush.takesTextColors = takesTextColors && IsBlackAndWhite(brush.tile);
  return brush;
}

}  // namespace lumidex::metafile
