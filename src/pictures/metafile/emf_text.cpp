#include "pictures/metafile/emf_player.h"
#include "pictures/metafile/emf_reading.h"
#include "pictures/metafile/letters.h"
#include "pictures/metafile/record_values.h"

namespace lumidex::metafile {
namespace {

// Bounds, a graphics mode and two scales.
constexpr std::size_t bytesBeforeText = boundsBytes + 12;

constexpr std::uint32_t glyphNumbers = 0x10, noBox = 0x100, smallLetters = 0x200, pairedAdvances = 0x2000;

}  // namespace

void EmfPlayer::PlayExtTextOut(Record& record) {
  record.reader.Skip(bytesBeforeText);
  PlayTextString(record);
}

void EmfPlayer::PlayTextString(Record& record) {
  const bool wide = HasWideText(record.type);
  ByteReader& reader = record.reader;
  TextLine line;
  line.at = ReadPoint(reader);
  const std::uint32_t count = reader.U32Le(), textAt = reader.U32Le(), options = reader.U32Le();
  line.box = ReadBox(reader);
  const std::uint32_t advancesAt = reader.U32Le();
  line.fillBox = (options & text_option::fillsBox) != 0;
  line.clipToBox = (options & text_option::clipsToBox) != 0;

  ByteReader text(record.bytes);
  text.Seek(textAt);
  const std::size_t codes = std::min<std::size_t>(count, text.Remaining() / (wide ? 2 : 1));
  const Font& font = State().font;
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
      if (options & pairedAdvances) unit.rise += advances.S32Le();
    }
    line.units.push_back(std::move(unit));
  }
  drawing_.text.Draw(std::move(line));
}

void EmfPlayer::PlayPolyTextOut(Record& record) {
  constexpr std::size_t descriptionBytes = 40;
  ByteReader& reader = record.reader;
  reader.Skip(bytesBeforeText);
  WorkBudget& budget = drawing_.context.Budget();
  for (std::uint32_t count = reader.U32Le(); count > 0 && reader.Remaining() >= descriptionBytes; --count) {
    if (!budget.Spend(CostOfRecord(descriptionBytes))) return;
    PlayTextString(record);
  }
}

void EmfPlayer::PlaySmallTextOut(Record& record) {
  ByteReader& reader = record.reader;
  TextLine line;
  line.at = ReadPoint(reader);
  const std::uint32_t count = reader.U32Le(), options = reader.U32Le();
  reader.Skip(12);
  if (!(options & noBox)) {
    line.box = ReadBox(reader);
    line.fillBox = (options & text_option::fillsBox) != 0;
    line.clipToBox = (options & text_option::clipsToBox) != 0;
  }
  const bool small = (options & smallLetters) != 0;
  const std::size_t codes = std::min<std::size_t>(count, reader.Remaining() / (small ? 1 : 2));
  const Bytes stored = reader.Take(small ? codes : codes * 2);
  const Font& font = State().font;
  for (const Letter& letter : small ? LettersFromCodePage(stored, font) : LettersFromUtf16(stored, font))
    line.units.push_back({letter.text, 0});
  drawing_.text.Draw(std::move(line));
}

}  // namespace lumidex::metafile
