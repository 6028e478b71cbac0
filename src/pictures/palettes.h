#pragma once
// Colour tables, and those that files without one of their own count on.

#include <array>
#include <cstdint>

#include "pictures/byte_reader.h"

namespace lumidex {

// Colours as pixels (0xAARRGGBB). Always 256, so that any index byte has an answer.
using Palette = std::array<std::uint32_t, 256>;

constexpr std::uint32_t Rgb(unsigned red, unsigned green, unsigned blue) {
  return 0xFF000000U | red << 16 | green << 8 | blue;
}

inline constexpr std::uint32_t blackPixel = 0xFF000000;
inline constexpr std::uint32_t whitePixel = 0xFFFFFFFF;

// The 16 colours of the IBM colour adapters.
inline constexpr std::array<std::uint32_t, 16> ega16 = {
    0xFF000000, 0xFF0000AA, 0xFF00AA00, 0xFF00AAAA, 0xFFAA0000, 0xFFAA00AA, 0xFFAA5500, 0xFFAAAAAA,
    0xFF555555, 0xFF5555FF, 0xFF55FF55, 0xFF55FFFF, 0xFFFF5555, 0xFFFF55FF, 0xFFFFFF55, 0xFFFFFFFF};

// The four colours of a CGA graphics mode: colour 0 is `background` (of ega16), the rest is the set
// 0 (green, red, brown), 1 (cyan, magenta, grey) or 2 (cyan, red, grey), dull or bright.
std::array<std::uint32_t, 4> CgaColours(int set, bool bright, int background);

// A colour register of the EGA, six bits rgbRGB: the high half of each component is worth 2/3.
std::uint32_t EgaRegisterColour(unsigned value);

// A component of six bits, as the VGA's registers hold it, widened to eight.
constexpr unsigned Widen6(unsigned value) {
  return (value & 63) << 2 | (value & 63) >> 4;
}

// All entries opaque black.
Palette BlackPalette();
// The colours of a picture of one bit a pixel.
Palette TwoColours(std::uint32_t zero, std::uint32_t one);
// Entry i is grey i.
Palette GreyPalette();
// The 256 colours that the VGA starts with in mode 13h: 16 colours, 16 greys, nine rings of 24 hues, black.
Palette VgaPalette();

// Reads `count` (at most 256) entries of three bytes R, G, B into the first entries; those that the input
// lacks keep their colour.
void ReadRgbEntries(ByteReader& reader, int count, Palette& palette);

}  // namespace lumidex
