#include "pictures/metafile/letters.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>

#include "pictures/byte_reader.h"

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

// The Symbol font's own encoding from 0x20 on; 0 where it has no letter.
constexpr std::array<char16_t, 224> symbols = {
    0x0020, 0x0021, 0x2200, 0x0023, 0x2203, 0x0025, 0x0026, 0x220B, 0x0028, 0x0029, 0x2217, 0x002B, 0x002C,
    0x2212, 0x002E, 0x002F, 0x0030, 0x0031, 0x0032, 0x0033, 0x0034, 0x0035, 0x0036, 0x0037, 0x0038, 0x0039,
    0x003A, 0x003B, 0x003C, 0x003D, 0x003E, 0x003F, 0x2245, 0x0391, 0x0392, 0x03A7, 0x0394, 0x0395, 0x03A6,
    0x0393, 0x0397, 0x0399, 0x03D1, 0x039A, 0x039B, 0x039C, 0x039D, 0x039F, 0x03A0, 0x0398, 0x03A1, 0x03A3,
    0x03A4, 0x03A5, 0x03C2, 0x03A9, 0x039E, 0x03A8, 0x0396, 0x005B, 0x2234, 0x005D, 0x22A5, 0x005F, 0x203E,
    0x03B1, 0x03B2, 0x03C7, 0x03B4, 0x03B5, 0x03C6, 0x03B3, 0x03B7, 0x03B9, 0x03D5, 0x03BA, 0x03BB, 0x03BC,
    0x03BD, 0x03BF, 0x03C0, 0x03B8, 0x03C1, 0x03C3, 0x03C4, 0x03C5, 0x03D6, 0x03C9, 0x03BE, 0x03C8, 0x03B6,
    0x007B, 0x007C, 0x007D, 0x223C, 0,      0,      0,      0,      0,      0,      0,      0,      0,
    0,      0,      0,      0,      0,      0,      0,      0,      0,      0,      0,      0,      0,
    0,      0,      0,      0,      0,      0,      0,      0,      0,      0,      0,      0x20AC, 0x03D2,
    0x2032, 0x2264, 0x2044, 0x221E, 0x0192, 0x2663, 0x2666, 0x2665, 0x2660, 0x2194, 0x2190, 0x2191, 0x2192,
    0x2193, 0x00B0, 0x00B1, 0x2033, 0x2265, 0x00D7, 0x221D, 0x2202, 0x2022, 0x00F7, 0x2260, 0x2261, 0x2248,
    0x2026, 0x23D0, 0x23AF, 0x21B5, 0x2135, 0x2111, 0x211C, 0x2118, 0x2297, 0x2295, 0x2205, 0x2229, 0x222A,
    0x2283, 0x2287, 0x2284, 0x2282, 0x2286, 0x2208, 0x2209, 0x2220, 0x2207, 0x00AE, 0x00A9, 0x2122, 0x220F,
    0x221A, 0x22C5, 0x00AC, 0x2227, 0x2228, 0x21D4, 0x21D0, 0x21D1, 0x21D2, 0x21D3, 0x25CA, 0x2329, 0x00AE,
    0x00A9, 0x2122, 0x2211, 0x239B, 0x239C, 0x239D, 0x23A1, 0x23A2, 0x23A3, 0x23A7, 0x23A8, 0x23A9, 0x23AA,
    0,      0x232A, 0x222B, 0x2320, 0x23AE, 0x2321, 0x239E, 0x239F, 0x23A0, 0x23A4, 0x23A5, 0x23A6, 0x23AB,
    0x23AC, 0x23AD, 0};

bool IsSymbol(const Font& font) {
  return HasSameLetters(font.family, "Symbol");
}

// The signs of the Wingdings font that documents use as bullets, arrows and ticks.
char32_t WingdingsSign(unsigned code) {
  switch (code) {
    case 0x6C:
      return 0x25CF;
    case 0x6E:
      return 0x25A0;
    case 0x6F:
      return 0x25A1;
    case 0x71:
      return 0x2751;
    case 0x74:
    case 0x75:
      return 0x25C6;
    case 0x76:
      return 0x2756;
    case 0xA7:
      return 0x25AA;
    case 0xA8:
      return 0x25FB;
    case 0xD8:
      return 0x27A2;
    case 0xDF:
      return 0x2190;
    case 0xE0:
      return 0x2192;
    case 0xE1:
      return 0x2191;
    case 0xE2:
      return 0x2193;
    case 0xF0:
      return 0x21E8;
    case 0xFB:
      return 0x2718;
    case 0xFC:
      return 0x2714;
    default:
      return code == 0x20 ? 0x20 : 0x2022;
  }
}

// The letter of a font with an encoding of its own, or 0 when the font has none.
char32_t OwnLetter(unsigned code, const Font& font) {
  if (IsSymbol(font)) {
    const char32_t letter = code >= 0x20 && code <= 0xFF ? symbols[code - 0x20] : 0;
    return letter != 0 ? letter : U' ';
  }
  if (HasSameLetters(font.family, "Wingdings")) return WingdingsSign(code);
  return 0;
}

const char* CodePageOf(int charset) {
  switch (charset) {
    case 77:
      return "MACINTOSH";
    case 128:
      return "CP932";
    case 129:
      return "UHC";
    case 134:
      return "GBK";
    case 136:
      return "BIG5";
    case 161:
      return "CP1253";
    case 162:
      return "CP1254";
    case 163:
      return "CP1258";
    case 177:
      return "CP1255";
    case 178:
      return "CP1256";
    case 186:
      return "CP1257";
    case 204:
      return "CP1251";
    case 222:
      return "CP874";
    case 238:
      return "CP1250";
    case 255:
      return "CP850";
    default:
      return "CP1252";
  }
}

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
    std::copy_n(bytes.begin(), std::min(bytes.size(), from.size()), from.begin());
    std::array<char, 32> to{};
    char *in = from.data(), *out = to.data();
    std::size_t inLeft = bytes.size(), outLeft = to.size();
    iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    if (iconv(handle_, &in, &inLeft, &out, &outLeft) == static_cast<std::size_t>(-1)) return {};
    return {to.data(), to.size() - outLeft};
  }

 private:
  bool IsOpen() const { return handle_ != std::bit_cast<iconv_t>(std::intptr_t{-1}); }
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
    if (const char32_t own = OwnLetter(code, font)) {
      letter.text = Utf8(own);
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
    const char32_t own = plain < 0x100 ? OwnLetter(plain, font) : 0;
    letter.endsLine = code == '\n';
    if (own) {
      letter.text = Utf8(own);
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
