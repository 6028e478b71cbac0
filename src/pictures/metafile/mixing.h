#pragma once
// How new colour and the picture below it become one: the binary raster operations of pens and brushes and
// the ternary ones of block transfers, numbered as the Windows drawing interface does.

#include <cstdint>

namespace lumidex::metafile {

// Binary operations are numbered 1 to 16.
inline constexpr int blackPen = 1, noPen = 11, copyPen = 13, whitePen = 16;

// The ternary operation that does the same with the pattern and takes no source.
constexpr int TernaryOf(int binaryOperation) {
  const int bits = (binaryOperation - 1) & 0xF;
  return (bits & 3) * 5 | (bits >> 2) * 5 << 4;
}

inline constexpr int sourceCopy = 0xCC;
inline constexpr int patternCopy = 0xF0;
inline constexpr int invertPicture = 0x55, keepPicture = 0xAA;

// Bit 4 p + 2 s + d of `operation` is the result for the bits p, s and d of pattern, source and picture.
constexpr std::uint32_t Combine(int operation, std::uint32_t pattern, std::uint32_t source,
                                std::uint32_t below) {
  std::uint32_t result = 0;
  for (int index = 0; index < 8; ++index) {
    if (!((operation >> index) & 1)) continue;
    result |=
        (index & 4 ? pattern : ~pattern) & (index & 2 ? source : ~source) & (index & 1 ? below : ~below);
  }
  return result;
}
constexpr bool UsesSource(int operation) {
  return ((operation >> 2) & 0x33) != (operation & 0x33);
}
constexpr bool UsesPattern(int operation) {
  return ((operation >> 4) & 0x0F) != (operation & 0x0F);
}
constexpr bool UsesPicture(int operation) {
  return ((operation >> 1) & 0x55) != (operation & 0x55);
}

}  // namespace lumidex::metafile
