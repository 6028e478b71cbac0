#include "pictures/metafile/letters.h"
#include "pictures/metafile/palette_reading.h"
#include "pictures/metafile/record_values.h"
#include "pictures/metafile/wmf_player.h"

namespace lumidex::metafile {
namespace {

Font ReadFont(ByteReader& record) {
  Font font;
  font.height = record.S16Le();
  font.width = record.S16Le();
  font.escapement = record.S16Le();
  record.Skip(2);
  font.weight = record.S16Le();
  font.italic = record.U8() != 0;
  font.underlined = record.U8() != 0;
  font.struckOut = record.U8() != 0;
  font.charset = record.U8();
  record.Skip(3);
  font.pitchAndFamily = record.U8();
  const Bytes name = record.Take(std::min<std::size_t>(record.Remaining(), 32));
  const Bytes upToZero(name.begin(), std::ranges::find(name, 0));
  for (const Letter& letter : LettersFromCodePage(upToZero, font)) font.family += letter.text;
  return font;
}

Pen ReadPen(ByteReader& record, const DeviceContext& context) {
  Pen pen;
  // Of the style word, only what a plain pen may have.
  pen.style = record.U16Le() & (pen_style::dashMask | pen_style::capMask | pen_style::joinMask);
  pen.width = record.S16Le();
  record.Skip(2);
  pen.ink.colour = context.Colour(record.U32Le());
  if ((pen.style & pen_style::dashMask) >= pen_style::user) pen.style &= ~pen_style::dashMask;
  return pen;
}

Brush ReadBrush(ByteReader& record, const DeviceContext& context) {
  Brush brush;
  const unsigned style = record.U16Le();
  brush.colour = context.Colour(record.U32Le());
  brush.hatch = record.U16Le();
  brush.kind = style == brush_style::null      ? Ink::Kind::None
               : style == brush_style::hatched ? Ink::Kind::Hatched
                                               : Ink::Kind::Solid;
  return brush;
}

Region ReadRegion(ByteReader& record) {
  Region region;
  record.Skip(10);
  const unsigned scans = record.U16Le();
  record.Skip(10);
  for (unsigned scan = 0; scan < scans && record.Remaining() >= 8; ++scan) {
    const unsigned edges = record.U16Le();
    const double top = record.S16Le(), bottom = record.S16Le();
    for (unsigned i = 0; i + 1 < edges && record.Remaining() >= 4; i += 2) {
      const double left = record.S16Le(), right = record.S16Le();
      region.boxes.push_back(Box{left, top, right, bottom}.Normalised());
    }
    record.Skip(2);
  }
  return region;
}

}  // namespace

void WmfPlayer::PlayCreatePenIndirect(ByteReader& record) {
  objects_.Add(ReadPen(record, drawing_.context));
}

void WmfPlayer::PlayCreateBrushIndirect(ByteReader& record) {
  objects_.Add(ReadBrush(record, drawing_.context));
}

void WmfPlayer::PlayCreateFontIndirect(ByteReader& record) {
  objects_.Add(ReadFont(record));
}

void WmfPlayer::PlayCreatePalette(ByteReader& record) {
  record.Skip(2);
  objects_.Add(ReadPalette(record));
}

void WmfPlayer::PlayCreateRegion(ByteReader& record) {
  objects_.Add(ReadRegion(record));
}

void WmfPlayer::PlayCreatePatternBrush(ByteReader& record) {
  objects_.Add(TiledBrush(record, BitmapKind::Device));
}

void WmfPlayer::PlayDibCreatePatternBrush(ByteReader& record) {
  objects_.Add(TiledBrush(record, BitmapKind::DeviceIndependent));
}

void WmfPlayer::PlayCreateUnused(ByteReader&) {
  objects_.Add(std::monostate{});
}

void WmfPlayer::PlaySelectObject(ByteReader& record) {
  drawing_.context.Select(objects_.Get(record.U16Le()));
}

void WmfPlayer::PlayDeleteObject(ByteReader& record) {
  objects_.Remove(record.U16Le());
}

void WmfPlayer::PlaySetPalEntries(ByteReader& record) {
  const std::size_t first = record.U16Le(), count = record.U16Le();
  ReadPaletteEntries(record, first, count, *State().palette);
}

void WmfPlayer::PlayResizePalette(ByteReader& record) {
  ResizePalette(*State().palette, record.U16Le(), drawing_.context.Budget());
}

void WmfPlayer::PlayTextOut(ByteReader& record) {
  PlayText(record, false);
}

void WmfPlayer::PlayExtTextOut(ByteReader& record) {
  PlayText(record, true);
}

void WmfPlayer::PlayText(ByteReader& record, bool extended) {
  TextLine line;
  const auto readPlace = [&] {
    line.at.y = record.S16Le();
    line.at.x = record.S16Le();
  };
  if (extended) readPlace();
  const std::size_t count = record.U16Le();
  if (extended) {
    const unsigned options = record.U16Le();
    line.fillBox = (options & text_option::fillsBox) != 0;
    line.clipToBox = (options & text_option::clipsToBox) != 0;
    if (line.fillBox || line.clipToBox) {
      const double left = record.S16Le(), top = record.S16Le(), right = record.S16Le();
      line.box = {left, top, right, static_cast<double>(record.S16Le())};
    }
  }
  const Bytes text = record.Take(count);
  record.Skip(std::min<std::size_t>(count % 2, record.Remaining()));
  if (!extended) readPlace();
  const std::vector<Letter> letters = LettersFromCodePage(text, State().font);
  line.hasAdvances = extended && record.Remaining() >= 2 * text.size() && !text.empty();
  for (const Letter& letter : letters) {
    TextUnit unit{letter.text, 0};
    for (std::size_t i = 0; line.hasAdvances && i < letter.codes; ++i) unit.advance += record.S16Le();
    line.units.push_back(std::move(unit));
  }
  drawing_.text.Draw(std::move(line));
}

}  // namespace lumidex::metafile
