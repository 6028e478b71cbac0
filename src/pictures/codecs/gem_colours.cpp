#include "pictures/codecs/gem_colours.h"

#include <algorithm>

#include "pictures/byte_reader.h"

namespace lumidex {
namespace {

constexpr std::size_t tagOffset = 16, ximgColoursOffset = 22, stColourBytes = 16 * 2;

Palette BitsInReverse() {
  Palette palette;
  for (unsigned i = 0; i < 256; ++i) {
    unsigned reversed = 0;
    for (unsigned bit = 0; bit < 8; ++bit) reversed |= (i >> bit & 1) << (7 - bit);
    palette[i] = Rgb(255 - reversed, 255 - reversed, 255 - reversed);
  }
  return palette;
}

// From white, which is 0, to black.
Palette FallingGreys(unsigned last) {
  Palette palette = BlackPalette();
  for (unsigned i = 0; i <= last; ++i) {
    const unsigned grey = 255 - i * 255 / last;
    palette[i] = Rgb(grey, grey, grey);
  }
  return palette;
}

// What a screen of so many planes shows when nobody has set its colours.
Palette ScreenColours(int planes) {
  static constexpr std::array<std::uint32_t, 16> sixteen = {
      0xFFFFFFFF, 0xFFFF0000, 0xFF00FF00, 0xFFFFFF00, 0xFF0000FF, 0xFFFF00FF, 0xFF00FFFF, 0xFFAEAEAE,
      0xFF555555, 0xFFAE0000, 0xFF00AE00, 0xFFAEAE00, 0xFF0000AE, 0xFFAE00AE, 0xFF00AEAE, 0xFF000000};
  Palette palette = BlackPalette();
  switch (planes) {
    case 1:
      return TwoColours(whitePixel, blackPixel);
    case 2:
      std::copy_n(sixteen.begin(), 3, palette.begin());
      return palette;
    case 3:
      std::copy_n(sixteen.begin(), 7, palette.begin());
      return palette;
    case 4:
      std::ranges::copy(sixteen, palette.begin());
      return palette;
    case 8:
      return BitsInReverse();
    default:
      return FallingGreys((1U << planes) - 1);
  }
}

// Components from 0 to 1000, in the order of the pixel values.
void ReadXimgColours(ByteReader reader, int planes, Palette& palette) {
  reader.Seek(ximgColoursOffset - 2);
  constexpr unsigned cyanMagentaYellow = 1;
  const bool inverted = reader.U16Be() == cyanMagentaYellow;
  const auto component = [&] {
    const unsigned value = (std::min<unsigned>(reader.U16Be(), 1000) * 255 + 500) / 1000;
    return inverted ? 255 - value : value;
  };
  for (std::size_t i = 0; i < std::size_t{1} << planes && reader.Remaining() >= 6; ++i) {
    const unsigned red = component(), green = component(), blue = component();
    palette[i] = Rgb(red, green, blue);
  }
}

// Sixteen words 0RGB with three bits each, the last of the header.
void ReadStColours(ByteReader reader, Palette& palette) {
  reader.Seek(reader.Size() - stColourBytes);
  for (std::size_t i = 0; i < 16; ++i) {
    const unsigned word = reader.U16Be();
    const auto component = [word](unsigned shift) { return (word >> shift & 7) * 255 / 7; };
    palette[i] = Rgb(component(8), component(4), component(0));
  }
}

}  // namespace

bool HasGemTag(Bytes header, std::string_view tag) {
  return header.size() >= tagOffset + tag.size() &&
         std::ranges::equal(header.subspan(tagOffset, tag.size()), tag, {}, {},
                            [](char letter) { return static_cast<std::uint8_t>(letter); });
}

Palette GemColours(Bytes header, int planes) {
  Palette palette = ScreenColours(planes);
  if (HasGemTag(header, "XIMG")) {
    ReadXimgColours(ByteReader(header), planes, palette);
  } else if (planes == 4 &&
             ((header.size() == 54 && HasGemTag(header, "STTT")) ||
              (header.size() == 50 && header[tagOffset] == 0 && header[tagOffset + 1] == 0x80))) {
    ReadStColours(ByteReader(header), palette);
  }
  return palette;
}

}  // namespace lumidex
