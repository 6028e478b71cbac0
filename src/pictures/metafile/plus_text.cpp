#include "pictures/metafile/emf_reading.h"
#include "pictures/metafile/letters.h"
#include "pictures/metafile/plus_player.h"

namespace lumidex::metafile::plus {

void Player::UseFont(const FontObject& font, const Brush& brush) {
  DeviceState& state = State();
  state.font = font.font;
  state.font.height = Length(font.font.height, font.unit);
  state.textColour = brush.colour;
  state.opaqueBackground = false;
}

std::vector<TextLine> Player::Lines(const std::vector<Letter>& letters, double room) {
  std::vector<TextLine> lines(1);
  std::vector<TextUnit> word;
  double used = 0, wordWidth = 0;
  const auto endWord = [&] {
    // A word alone stays on its line however long it is.
    if (room > 0 && used + wordWidth > room && !lines.back().units.empty()) {
      lines.emplace_back();
      used = 0;
    }
    lines.back().units.insert(lines.back().units.end(), word.begin(), word.end());
    used += wordWidth;
    word.clear();
    wordWidth = 0;
  };
  for (const Letter& letter : letters) {
    const double width = room > 0 ? drawing_.text.WidthOf(letter.text) : 0;
    if (letter.endsLine) {
      endWord();
      lines.emplace_back();
      used = 0;
    } else if (letter.text == " ") {
      endWord();
      lines.back().units.push_back({letter.text});
      used += width;
    } else {
      word.push_back({letter.text});
      wordWidth += width;
    }
  }
  endWord();
  return lines;
}

void Player::PlayDrawString(Record& record) {
  ByteReader& reader = record.reader;
  const Brush brush = ReadFillBrush(record);
  const auto* given = Get<TextFormat>(reader.U32Le());
  const TextFormat format = given ? *given : TextFormat{};
  const std::uint32_t count = reader.U32Le();
  const Box box = ReadBox(reader, false);
  const auto* font = Get<FontObject>(record.ObjectNumber());
  if (!font || brush.kind == Ink::Kind::None) return;
  UseFont(*font, brush);

  const Bytes text = reader.Take(std::size_t{count} * 2);
  const double room = format.wraps && box.Width() > 0 ? box.Width() : 0;
  std::vector<TextLine> lines = Lines(LettersFromUtf16(text, font->font), room);
  constexpr std::array aligns = {0U, text_align::centre, text_align::right};
  DeviceState& state = State();
  state.textAlign = aligns[static_cast<std::size_t>(format.across)];
  const double lineHeight = -state.font.height * 1.2, height = lineHeight * static_cast<double>(lines.size());
  Point at{box.left + box.Width() * format.across / 2, box.top + (box.Height() - height) * format.down / 2};
  for (TextLine& line : lines) {
    line.at = at;
    drawing_.text.Draw(std::move(line));
    at.y += lineHeight;
  }
}

// Letters with a place each.
void Player::PlayDrawDriverString(Record& record) {
  constexpr std::uint32_t areLetters = 1;
  ByteReader& reader = record.reader;
  const Brush brush = ReadFillBrush(record);
  const std::uint32_t options = reader.U32Le();
  reader.Skip(4);
  const std::uint32_t count = reader.U32Le();
  const auto* font = Get<FontObject>(record.ObjectNumber());
  if (!font || brush.kind == Ink::Kind::None) return;
  const std::size_t codes = std::min<std::size_t>(count, reader.Remaining() / 10);
  Bytes text = reader.Take(codes * 2);
  std::vector<std::uint8_t> fromNumbers;
  if (!(options & areLetters)) {
    fromNumbers = TextFromGlyphNumbers(text);
    text = fromNumbers;
  }
  const auto places = ReadPoints(reader, codes, false, false);
  UseFont(*font, brush);
  State().textAlign = text_align::baseline;
  std::size_t place = 0;
  for (const Letter& letter : LettersFromUtf16(text, font->font)) {
    if (place >= places.size()) return;
    TextLine line;
    line.at = places[place];
    line.units = {{letter.text, 0}};
    drawing_.text.Draw(std::move(line));
    place += letter.codes;
  }
}

}  // namespace lumidex::metafile::plus
