#pragma once
// How new colour and the picture below it become one: the binary raster operations of pens and brushes and
// the ternary ones of block transfers, numbered as the Windows drawing interface does.

#include <cairo.h>

#include <cstdint>
#include <optional>

namespace lumidex::metafile {

inline constexpr int copyPen = 13;

// What a binary raster operation means to the renderer. Its blending works on numbers, not on bits; for
// channels of 0 and 255, where these operations are used, that is the same.
struct Mix {
  bool nothing = false;
  cairo_operator_t blend = CAIRO_OPERATOR_OVER;
  bool inverted = false;                      // the colour is turned into its opposite first
  std::optional<std::uint32_t> fixedColor{};  // used instead of the pen's or brush's own
};

// `operation` is 1 to 16; the four that invert the result of a blend are drawn as a plain copy.
constexpr Mix MixOf(int operation) {
  switch (operation) {
    case 1:
      return {.fixedColor = 0x000000};
    case 3:
      return {.blend = CAIRO_OPERATOR_DARKEN, .inverted = true};
    case 4:
      return {.inverted = true};
    case 6:
      return {.blend = CAIRO_OPERATOR_DIFFERENCE, .fixedColor = 0xFFFFFF};
    case 7:
      return {.blend = CAIRO_OPERATOR_DIFFERENCE};
    case 9:
      return {.blend = CAIRO_OPERATOR_DARKEN};
    case 10:
      return {.blend = CAIRO_OPERATOR_DIFFERENCE, .inverted = true};
    case 11:
      return {.nothing = true};
    case 12:
      return {.blend = CAIRO_OPERATOR_LIGHTEN, .inverted = true};
    case 15:
      return {.blend = CAIRO_OPERATOR_LIGHTEN};
    case 16:
      return {.fixedColor = 0xFFFFFF};
    default:
      return {};
  }
}

inline constexpr int sourceCopy = 0xCC;
inline constexpr int patternCopy = 0xF0;

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
