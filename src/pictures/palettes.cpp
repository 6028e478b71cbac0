#include "pictures/palettes.h"

#include <algorithm>
#include <cstddef>

namespace lumidex {
namespace {

// The nine rings of hues, in six-bit steps from the least to the most of a component: three intensities,
// each fully, half and barely saturated.
constexpr std::array<std::array<std::uint8_t, 5>, 9> ringLevels = {{{0, 16, 31, 47, 63},
                                                                    {31, 39, 47, 55, 63},
                                                                    {45, 49, 54, 58, 63},
                                                                    {0, 7, 14, 21, 28},
                                                                    {14, 17, 21, 24, 28},
                                                                    {20, 22, 24, 26, 28},
                                                                    {0, 4, 8, 12, 16},
                                                                    {8, 10, 12, 14, 16},
                                                                    {11, 12, 13, 15, 16}}};

constexpr std::array<std::uint8_t, 16> greyLevels = {0,  5,  8,  11, 14, 17, 20, 24,
                                                     28, 32, 36, 40, 45, 50, 56, 63};

// One component's level (0..4) along the ring of 24 steps: up in four, at the top for eight, down in four,
// at the bottom for eight.
std::size_t RingLevel(int step) {
  const int at = (step + 24) % 24;
  if (at < 4) return static_cast<std::size_t>(at);
  if (at <= 12) return 4;
  if (at <= 16) return static_cast<std::size_t>(16 - at);
  return 0;
}

}  // namespace

std::array<std::uint32_t, 4> CgaColours(int set, bool bright, int background) {
  static constexpr std::array<std::array<std::uint8_t, 3>, 3> sets = {{{2, 4, 6}, {3, 5, 7}, {3, 4, 7}}};
  const auto& chosen = sets[static_cast<std::size_t>(std::clamp(set, 0, 2))];
  std::array<std::uint32_t, 4> colours{};
  colours[0] = ega16[static_cast<std::size_t>(background & 15)];
  for (std::size_t i = 0; i < 3; ++i) colours[i + 1] = ega16[chosen[i] + (bright ? 8U : 0U)];
  return colours;
}

std::uint32_t EgaRegisterColour(unsigned value) {
  const auto component = [value](unsigned high, unsigned low) {
    return 0xAA * (value >> high & 1) + 0x55 * (value >> low & 1);
  };
  return Rgb(component(2, 5), component(1, 4), component(0, 3));
}

Palette BlackPalette() {
  Palette palette;
  palette.fill(blackPixel);
  return palette;
}

Palette TwoColours(std::uint32_t zero, std::uint32_t one) {
  Palette palette = BlackPalette();
  palette[0] = zero;
  palette[1] = one;
  return palette;
}

Palette GreyPalette() {
  Palette palette;
  for (unsigned i = 0; i < palette.size(); ++i) palette[i] = Rgb(i, i, i);
  return palette;
}

Palette VgaPalette() {
  Palette palette = BlackPalette();
  std::ranges::copy(ega16, palette.begin());
  for (std::size_t i = 0; i < greyLevels.size(); ++i) {
    const unsigned grey = Widen6(greyLevels[i]);
    palette[16 + i] = Rgb(grey, grey, grey);
  }
  std::size_t entry = 32;
  for (const auto& levels : ringLevels) {
    for (int step = 0; step < 24; ++step) {
      // The ring goes from blue over red and green back to blue.
      palette[entry++] = Rgb(Widen6(levels[RingLevel(step)]), Widen6(levels[RingLevel(step - 8)]),
                             Widen6(levels[RingLevel(step + 8)]));
    }
  }
  return palette;
}

void ReadRgbEntries(ByteReader& reader, int count, Palette& palette) {
  for (int i = 0; i < std::min(count, 256) && reader.Remaining() >= 3; ++i) {
    const unsigned red = reader.U8(), green = reader.U8(), blue = reader.U8();
    palette[static_cast<std::size_t>(i)] = Rgb(red, green, blue);
  }
}

}  // namespace lumidex
