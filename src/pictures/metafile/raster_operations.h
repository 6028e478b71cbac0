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

// The operations that cut a shape out of the picture with a mask and put another into the hole.
inline constexpr int sourceAnd = 0x88, notSourceAnd = 0x22, sourceOr = 0xEE, notSourceOr = 0xBB;
constexpr bool IsMasking(int operation) {
  return operation == sourceAnd || operation == notSourceAnd || operation == sourceOr ||
         operation == notSourceOr;
}
// A masking operation with a source whose edges were smoothed when it was scaled: instead of bits, of which
// those of half a colour mean nothing, channels are multiplied or added. For black and white it is the same.
constexpr std::uint32_t CombineSmoothed(int operation, std::uint32_t source, std::uint32_t below) {
  const std::uint32_t given = operation == notSourceAnd || operation == notSourceOr ? ~source : source;
  const bool multiplies = operation == sourceAnd || operation == notSourceAnd;
  std::uint32_t result = 0;
  for (int shift = 0; shift < 24; shift += 8) {
    const std::uint32_t s = given >> shift & 0xFF, d = below >> shift & 0xFF;
    result |= (multiplies ? (s * d + 127) / 255 : s + d > 255 ? 255 : s + d) << shift;
  }
  return result;
}
constexpr bool UsesSource(int operation) {
  return ((operation >> 2) & 0x33) != (operation & 0x33);
}
constexpr bool UsesPattern(int operation) {
  return ((operation >> 4) & 0x0F) != (operation & 0x0F);
}

}  // namespace lumidex::metafile
