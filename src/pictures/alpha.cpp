#include "pictures/alpha.h"

#include <algorithm>

namespace lumidex {
namespace {

constexpr std::uint32_t AlphaMask = 0xFF000000U;

// value * factor / 255, rounded.
constexpr std::uint32_t Scaled(std::uint32_t value, std::uint32_t factor) {
  const std::uint32_t product = value * factor + 128;
  return (product + (product >> 8)) >> 8;
}

std::uint32_t PremultipliedWord(std::uint32_t word) {
  const std::uint32_t alpha = word >> 24;
  if (alpha == 255) return word;
  if (alpha == 0) return 0;
  return (word & AlphaMask) | Scaled(word >> 16 & 255, alpha) << 16 | Scaled(word >> 8 & 255, alpha) << 8 |
         Scaled(word & 255, alpha);
}

// `word` is premultiplied.
std::uint32_t OverWhiteWord(std::uint32_t word) {
  const std::uint32_t white = 255 - (word >> 24);
  const auto channel = [&](int shift) {
    return std::min<std::uint32_t>((word >> shift & 255) + white, 255) << shift;
  };
  return AlphaMask | channel(16) | channel(8) | channel(0);
}

}  // namespace

void DeclareOpaqueIfSo(Pixels& pixels) {
  std::uint32_t all = AlphaMask;
  for (int y = 0; y < pixels.Height(); ++y) {
    for (std::uint32_t& word : pixels.Row(y)) {
      if ((word & AlphaMask) == 0) word = 0;
      all &= word;
    }
  }
  pixels.SetFormat(all == AlphaMask ? PixelFormat::Rgb : PixelFormat::Argb);
}

bool HasVisiblePixel(const Pixels& pixels) {
  std::uint32_t any = 0;
  for (int y = 0; y < pixels.Height() && any == 0; ++y) {
    for (const std::uint32_t word : pixels.Row(y)) any |= word & AlphaMask;
  }
  return any != 0;
}

void SettleAlpha(Pixels& pixels) {
  if (HasVisiblePixel(pixels)) return DeclareOpaqueIfSo(pixels);
  for (int y = 0; y < pixels.Height(); ++y) {
    for (std::uint32_t& word : pixels.Row(y)) word |= AlphaMask;
  }
  pixels.SetFormat(PixelFormat::Rgb);
}

void SettleAlpha(Pixels& pixels, int rows) {
  const auto fillMissing = [&](std::uint32_t word) {
    for (int y = rows; y < pixels.Height(); ++y) std::ranges::fill(pixels.Row(y), word);
  };
  fillMissing(blankPixel & ~AlphaMask);
  SettleAlpha(pixels);
  fillMissing(blankPixel);
}

Pixels Premultiplied(Pixels pixels) {
  if (pixels.IsEmpty() || pixels.Format() != PixelFormat::Argb) return pixels;
  Pixels changed =
      pixels.IsShared() ? Pixels::MakeUnfilled(pixels.GetSize(), PixelFormat::ArgbPremultiplied) : pixels;
  changed.SetFormat(PixelFormat::ArgbPremultiplied);
  for (int y = 0; y < pixels.Height(); ++y)
    std::ranges::transform(pixels.Row(y), changed.Row(y).begin(), PremultipliedWord);
  return changed;
}

void BlendOverWhite(std::span<const std::uint32_t> pixels, PixelFormat format, std::span<std::uint32_t> out) {
  switch (format) {
    case PixelFormat::Rgb:
      std::ranges::copy(pixels, out.begin());
      break;
    case PixelFormat::Argb:
      std::ranges::transform(pixels, out.begin(),
                             [](std::uint32_t word) { return OverWhiteWord(PremultipliedWord(word)); });
      break;
    case PixelFormat::ArgbPremultiplied:
      std::ranges::transform(pixels, out.begin(), OverWhiteWord);
      break;
  }
}

}  // namespace lumidex
