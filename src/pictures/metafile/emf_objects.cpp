#include "pictures/metafile/emf_player.h"
#include "pictures/metafile/emf_reading.h"
#include "pictures/metafile/letters.h"

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

PaletteColors ReadPalette(ByteReader& reader) {
  reader.Skip(2);
  auto colors = std::make_shared<std::vector<std::uint32_t>>(
      std::min<std::size_t>(reader.U16Le(), reader.Remaining() / 4));
  for (std::uint32_t& color : *colors) {
    const std::uint32_t red = reader.U8(), green = reader.U8(), blue = reader.U8();
    reader.Skip(1);
    color = 0xFF000000u | red << 16 | green << 8 | blue;
  }
  return colors;
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
    object = ReadPalette(reader);
  } else if (type == 82) {
    object = ReadFont(reader);
  } else if (type == 95) {
    object = ReadExtendedPen(record);
  } else {
    object = ReadTiledBrush(record);
  }
  objects_.Set(number, std::move(object));
  return true;
}

void EmfPlayer::SelectObject(std::uint32_t number) {
  constexpr std::uint32_t stock = 0x80000000;
  drawing_.Select(number & stock ? StockObject(number & ~stock) : objects_.Get(number));
}

Object EmfPlayer::ReadExtendedPen(Record& record) {
  ByteReader& reader = record.reader;
  Pen pen;
  const BitmapPlace place = ReadPlace(reader);
  pen.style = reader.U32Le();
  pen.width = reader.U32Le();
  const std::uint32_t brushStyle = reader.U32Le(), color = drawing_.Color(reader.U32Le());
  pen.ink = PlainBrush(brushStyle, color, reader.U32Le());
  if (brushStyle == 1) pen.style = pen_style::null;
  if (brushStyle >= 3 && place.IsGiven()) {
    if (auto tile = KeptTile(DecodeAt(record, place, 0), drawing_.Sheet().Budget())) {
      pen.ink.kind = Ink::Kind::Tiled;
      pen.ink.tile = *std::move(tile);
    }
  }
  const std::uint32_t dashes = std::min<std::uint32_t>(reader.U32Le(), 64);
  for (std::uint32_t i = 0; i < dashes && reader.Remaining() >= 4; ++i) pen.dashes.push_back(reader.U32Le());
  return pen;
}

Object EmfPlayer::ReadTiledBrush(Record& record) {
  const std::uint32_t usage = record.reader.U32Le();
  auto tile = KeptTile(DecodeAt(record, ReadPlace(record.reader), usage), drawing_.Sheet().Budget());
  if (!tile) return Brush{};
  Brush brush{.kind = Ink::Kind::Tiled};
  brush.tile = *std::move(tile);
  return brush;
}

bool EmfPlayer::PlayText(unsigned type, Record& record) {
  switch (type) {
    case 83:
    case 84:
      PlayTextString(record, type == 84);
      return true;
    case 108:
      PlaySmallText(record);
      return true;
    default:
      return false;
  }
}

namespace {

constexpr std::uint32_t fillsBox = 0x2, clipsToBox = 0x4, glyphNumbers = 0x10, noBox = 0x100,
                        smallLetters = 0x200, pairedAdvances = 0x2000;

// In the fonts that came with Windows the letters stand in the order of ASCII from the fourth place on, so
// that text given by place in the font can still be told.
constexpr std::uint16_t firstGlyphOffset = 29;

std::vector<std::uint8_t> TextFromGlyphNumbers(Bytes text) {
  ByteReader reader(text);
  std::vector<std::uint8_t> plain;
  while (reader.Remaining() >= 2) {
    const unsigned code = reader.U16Le() + firstGlyphOffset;
    plain.push_back(static_cast<std::uint8_t>(code & 0xFF));
    plain.push_back(static_cast<std::uint8_t>(code >> 8 & 0xFF));
  }
  return plain;
}

}  // namespace

void EmfPlayer::PlayTextString(Record& record, bool wide) {
  ByteReader& reader = record.reader;
  reader.Skip(16 + 12);
  TextLine line;
  line.at = ReadPoint(reader);
  const std::uint32_t count = reader.U32Le(), textAt = reader.U32Le(), options = reader.U32Le();
  line.box = ReadBox(reader);
  const std::uint32_t advancesAt = reader.U32Le();
  line.fillBox = (options & fillsBox) != 0;
  line.clipToBox = (options & clipsToBox) != 0;

  ByteReader text(record.bytes);
  text.Seek(textAt);
  const std::size_t codes = std::min<std::size_t>(count, text.Remaining() / (wide ? 2 : 1));
  const Font& font = drawing_.State().font;
  Bytes stored = text.Take(wide ? codes * 2 : codes);
  std::vector<std::uint8_t> plain;
  if (wide && (options & glyphNumbers)) {
    plain = TextFromGlyphNumbers(stored);
    stored = plain;
  }
  const auto letters = wide ? LettersFromUtf16(stored, font) : LettersFromCodePage(stored, font);

  ByteReader advances(record.bytes);
  advances.Seek(advancesAt);
  const std::size_t eachBytes = options & pairedAdvances ? 8 : 4;
  line.hasAdvances = advancesAt >= 8 && codes > 0 && advances.Remaining() / eachBytes >= codes;
  for (const Letter& letter : letters) {
    TextUnit unit{letter.text, 0};
    for (std::size_t i = 0; line.hasAdvances && i < letter.codes; ++i) {
      unit.advance += advances.S32Le();
      advances.Skip(eachBytes - 4);
    }
    line.units.push_back(std::move(unit));
  }
  drawing_.Text(line);
}

void EmfPlayer::PlaySmallText(Record& record) {
  ByteReader& reader = record.reader;
  TextLine line;
  line.at = ReadPoint(reader);
  const std::uint32_t count = reader.U32Le(), options = reader.U32Le();
  reader.Skip(12);
  if (!(options & noBox)) {
    line.box = ReadBox(reader);
    line.fillBox = (options & fillsBox) != 0;
    line.clipToBox = (options & clipsToBox) != 0;
  }
  const bool small = (options & smallLetters) != 0;
  const std::size_t codes = std::min<std::size_t>(count, reader.Remaining() / (small ? 1 : 2));
  const Bytes stored = reader.Take(small ? codes : codes * 2);
  const Font& font = drawing_.State().font;
  for (const Letter& letter : small ? LettersFromCodePage(stored, font) : LettersFromUtf16(stored, font))
    line.units.push_back({letter.text, 0});
  drawing_.Text(line);
}

}  // namespace lumidex::metafile
