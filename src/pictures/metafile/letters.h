#pragma once
// Turns the text of metafile records into UTF-8, letter by letter, since records place letters one by one.

#include <string>
#include <string_view>
#include <vector>

#include "pictures/metafile/device_state.h"
#include "pictures/picture_data.h"

namespace lumidex::metafile {

struct Letter {
  std::string text;       // UTF-8
  std::size_t codes = 1;  // how many of the stored codes it took
  bool endsLine = false;
};

// Text in the code page of the font's character set.
std::vector<Letter> LettersFromCodePage(Bytes text, const Font& font);
// Text in UTF-16, low byte first.
std::vector<Letter> LettersFromUtf16(Bytes text, const Font& font);
// Text given by the letters' numbers in their font, as UTF-16.
std::vector<std::uint8_t> TextFromGlyphNumbers(Bytes text);
// Whether two names differ at most in the case of ASCII letters.
bool HasSameLetters(std::string_view a, std::string_view b);
// A font name in UTF-16 that ends at its first zero.
std::string NameFromUtf16(Bytes text);

}  // namespace lumidex::metafile
