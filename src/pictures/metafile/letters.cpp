#include "pictures/metafile/letters.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>

#include "pictures/byte_reader.h"
#include "pictures/metafile/symbol_fonts.h"

namespace lumidex::metafile {
namespace {

constexpr char32_t unknownLetter = 0xFFFD;

void AppendUtf8(std::string& text, char32_t code) {
  if (code > 0x10FFFF || (code >= 0xD800 && code < 0xE000)) code = unknownLetter;
  const auto put = [&](char32_t byte) {
    text.push_back(static_cast<char>(static_cast<unsigned char>(byte)));
  };
  if (code < 0x80) {
    put(code);
  } else if (code < 0x800) {
    put(0xC0 | code >> 6);
    put(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    put(0xE0 | code >> 12);
    put(0x80 | (code >> 6 & 0x3F));
    put(0x80 | (code & 0x3F));
  } else {
    put(0xF0 | code >> 18);
    put(0x80 | (code >> 12 & 0x3F));
    put(0x80 | (code >> 6 & 0x3F));
    put(0x80 | (code & 0x3F));
  }
}

std::string Utf8(char32_t code) {
  std::string text;
  AppendUtf8(text, code);
  return text;
}

// As the published list of character sets numbers them.
enum class CharacterSet {
  Mac = 77,
  ShiftJis = 128,
  Hangul = 129,
  Gb2312 = 134,
  ChineseBig5 = 136,
  Greek = 161,
  Turkish = 162,
  Vietnamese = 163,
  Hebrew = 177,
  Arabic = 178,
  Baltic = 186,
  Russian = 204,
  Thai = 222,
  EastEurope = 238,
  Oem = 255,
};

const char* CodePageOf(int charset) {
  switch (static_cast<CharacterSet>(charset)) {
    case CharacterSet::Mac:
      return "MACINTOSH";
    case CharacterSet::ShiftJis:
      return "CP932";
    case CharacterSet::Hangul:
      return "UHC";
    case CharacterSet::Gb2312:
      return "GBK";
    case CharacterSet::ChineseBig5:
      return "BIG5";
    case CharacterSet::Greek:
      return "CP1253";
    case CharacterSet::Turkish:
      return "CP1254";
    case CharacterSet::Vietnamese:
      return "CP1258";
    case CharacterSet::Hebrew:
      return "CP1255";
    case CharacterSet::Arabic:
      return "CP1256";
    case CharacterSet::Baltic:
      return "CP1257";
    case CharacterSet::Russian:
      return "CP1251";
    case CharacterSet::Thai:
      return "CP874";
    case CharacterSet::EastEurope:
      return "CP1250";
    case CharacterSet::Oem:
      return "CP850";
    default:
      return "CP1252";
  }
}

// What iconv_open gives when it does not know a code page.
const auto noConverter = std::bit_cast<iconv_t>(std::intptr_t{-1});

class Converter {
 public:
  explicit Converter(const char* codePage) : handle_(iconv_open("UTF-8", codePage)) {}
  ~Converter() {
    if (IsOpen()) iconv_close(handle_);
  }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  // Empty when the bytes are not one whole letter.
  std::string Convert(Bytes bytes) const {
    if (!IsOpen()) return {};
    std::array<char, 4> from{};
    std::array<char, 32> to{};
    std::size_t inLeft = std::min(bytes.size(), from.size()), outLeft = to.size();
    std::copy_n(bytes.begin(), inLeft, from.begin());
    char *in = from.data(), *out = to.data();
    iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    if (iconv(handle_, &in, &inLeft, &out, &outLeft) == static_cast<std::size_t>(-1)) return {};
    return {to.data(), to.size() - outLeft};
  }

 private:
  bool IsOpen() const { return handle_ != noConverter; }
  iconv_t handle_;
};

// In the fonts that came with Windows the letters stand in the order of ASCII from the fourth place on, so
// that text given by place in the font can still be told.
constexpr std::uint16_t firstGlyphOffset = 29;

bool IsControl(unsigned code) {
  return code < 0x20 || code == 0x7F;
}

}  // namespace

bool HasSameLetters(std::string_view a, std::string_view b) {
  const auto lower = [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
  };
  return std::ranges::equal(a, b, {}, lower, lower);
}

std::vector<Letter> LettersFromCodePage(Bytes text, const Font& font) {
  const Converter converter(CodePageOf(font.charset));
  std::vector<Letter> letters;
  for (std::size_t i = 0; i < text.size();) {
    const unsigned code = text[i];
    Letter letter;
    if (const auto sign = SymbolOf(code, font.family)) {
      letter.text = Utf8(*sign);
    } else if (IsControl(code)) {
      letter.text = "";
    } else if (code < 0x80) {
      letter.text = Utf8(code);
    } else {
      letter.text = converter.Convert(text.subspan(i, 1));
      if (letter.text.empty() && i + 1 < text.size()) {
        letter.text = converter.Convert(text.subspan(i, 2));
        if (!letter.text.empty()) letter.codes = 2;
      }
      if (letter.text.empty()) letter.text = Utf8(code);
    }
    i += letter.codes;
    letters.push_back(std::move(letter));
  }
  return letters;
}

std::vector<Letter> LettersFromUtf16(Bytes text, const Font& font) {
  ByteReader reader(text);
  std::vector<Letter> letters;
  while (reader.Remaining() >= 2) {
    char32_t code = reader.U16Le();
    Letter letter;
    if (code >= 0xD800 && code < 0xDC00 && reader.Remaining() >= 2) {
      const char32_t low = reader.U16Le();
      code = 0x10000 + ((code - 0xD800) << 10) + ((low - 0xDC00) & 0x3FF);
      letter.codes = 2;
    }
    // Fonts with an encoding of their own keep it at 0xF000 for programs that know Unicode only.
    const unsigned plain = code >= 0xF000 && code < 0xF100 ? code - 0xF000 : code;
    const auto sign = plain < 0x100 ? SymbolOf(plain, font.family) : std::nullopt;
    letter.endsLine = code == '\n';
    if (sign && !letter.endsLine) {
      letter.text = Utf8(*sign);
    } else if (!IsControl(plain)) {
      letter.text = Utf8(plain);
    }
    letters.push_back(std::move(letter));
  }
  return letters;
}

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

std::string NameFromUtf16(Bytes text) {
  ByteReader reader(text);
  std::string name;
  while (reader.Remaining() >= 2) {
    const char32_t code = reader.U16Le();
    if (code == 0) break;
    AppendUtf8(name, code);
  }
  return name;
}

}  // namespace lumidex::metafile
