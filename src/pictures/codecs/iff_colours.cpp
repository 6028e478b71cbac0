#include "pictures/codecs/iff_colours.h"

#include <algorithm>

namespace lumidex {
namespace {

constexpr std::uint32_t holdAndModifyBit = 0x800, halfBrightBit = 0x80, extendedBit = 0x1000;

// Some brushes have junk for their display mode, told by an upper half without the bit that announces one.
bool IsJunk(std::uint32_t displayMode) {
  return displayMode >> 16 != 0 && (displayMode & extendedBit) == 0;
}

// The bits that ask for a mode, as far as they can be believed: of junk, what fits the number of colours.
std::uint32_t ModeBitsOf(const IffPicture& picture) {
  if (!picture.displayMode) return 0;
  if (!IsJunk(*picture.displayMode)) return *picture.displayMode;
  const bool mayHold = picture.planes >= 5 && picture.colourCount <= 1 << (picture.planes - 2);
  return mayHold ? *picture.displayMode & holdAndModifyBit : 0;
}

}  // namespace

IffMode ModeOf(const IffPicture& picture) {
  if (picture.planes > 8) return IffMode::TrueColour;
  if (picture.kind == IffKind::Chunky) return IffMode::Indexed;
  const std::uint32_t mode = ModeBitsOf(picture);
  const bool told = picture.displayMode && !IsJunk(*picture.displayMode);
  if ((mode & holdAndModifyBit) != 0 && picture.planes >= 5) return IffMode::HoldAndModify;
  if (picture.planes != 6) return IffMode::Indexed;
  if ((mode & halfBrightBit) != 0 || picture.colourCount == 32) return IffMode::HalfBright;
  if (!told && picture.colourCount == 16) return IffMode::HoldAndModify;
  return IffMode::Indexed;
}

Palette PaletteOf(const IffPicture& picture, IffMode mode) {
  Palette palette = picture.colours;
  if (picture.colourCount == 0) {
    // Hold-and-modify takes two planes for its codes.
    const int bits =
        mode == IffMode::HoldAndModify ? (picture.planes <= 6 ? 4 : 6) : std::min(picture.planes, 8);
    const unsigned last = (1U << bits) - 1;
    for (unsigned i = 0; i <= last; ++i) {
      const unsigned grey = (i * 255 + last / 2) / last;
      palette[i] = Rgb(grey, grey, grey);
    }
  }
  if (mode == IffMode::HalfBright) {
    for (std::size_t i = 0; i < 32; ++i) palette[i + 32] = 0xFF000000 | (palette[i] >> 1 & 0x7F7F7F);
  }
  if (picture.masking == 2 && mode != IffMode::HoldAndModify && picture.transparentIndex < 256)
    palette[static_cast<std::size_t>(picture.transparentIndex)] = 0;
  return palette;
}

void HoldAndModify(Bytes codes, int planes, const Palette& palette, std::span<std::uint32_t> pixels) {
  // Six planes hold four bits of value, eight hold six; with a plane less the topmost bit is 0.
  const unsigned valueBits = planes <= 6 ? 4 : 6;
  const unsigned valueMask = (1U << valueBits) - 1;
  std::uint32_t colour = palette[0];
  const std::size_t count = std::min(codes.size(), pixels.size());
  for (std::size_t x = 0; x < count; ++x) {
    const unsigned value = codes[x] & valueMask;
    const unsigned component = valueBits == 4 ? value * 17 : value << 2 | value >> 4;
    switch (codes[x] >> valueBits & 3) {
      case 0:
        colour = palette[value];
        break;
      case 1:
        colour = (colour & 0xFFFFFF00) | component;
        break;
      case 2:
        colour = (colour & 0xFF00FFFF) | component << 16;
        break;
      default:
        colour = (colour & 0xFFFF00FF) | component << 8;
    }
    pixels[x] = colour;
  }
}

}  // namespace lumidex
