#include "pictures/reduced_picture.h"

#include <algorithm>
#include <cmath>

#include "pictures/scaling.h"

namespace lumidex {
namespace {

// Half-transparent white or black over an opaque or transparent pixel.
std::uint32_t Shade(std::uint32_t pixel, std::uint32_t tone) {
  std::uint32_t shaded = 0xFF000000U;
  for (int shift = 0; shift < 24; shift += 8) {
    shaded |= (((pixel >> shift & 0xFFU) + tone) / 2) << shift;
  }
  return shaded;
}

void DrawBevel(Pixels& pixels) {
  constexpr std::uint32_t light = 255, dark = 40;
  const int lastX = pixels.Width() - 1, lastY = pixels.Height() - 1;
  for (int x = 0; x <= lastX; ++x) {
    const auto column = static_cast<std::size_t>(x);
    pixels.Row(0)[column] = Shade(pixels.Row(0)[column], light);
    pixels.Row(lastY)[column] = Shade(pixels.Row(lastY)[column], dark);
  }
  for (int y = 0; y <= lastY; ++y) {
    pixels.Row(y).front() = Shade(pixels.Row(y).front(), light);
    pixels.Row(y).back() = Shade(pixels.Row(y).back(), dark);
  }
}

}  // namespace

Size ReducedSize(Size full, int square) {
  const int longest = std::max(full.width, full.height);
  if (longest <= square) return full;
  const double ratio = static_cast<double>(square) / longest;
  const auto side = [&](int length) { return std::max(1, static_cast<int>(std::lround(length * ratio))); };
  return {side(full.width), side(full.height)};
}

Picture ReducedPicture(const Picture& picture, int square, ReducedStyle style) {
  const Size size = ReducedSize(picture.GetSize(), square);
  const Pixels decoded = picture.PixelsFor(size);
  Pixels reduced = Scale(decoded, size);
  if (style == ReducedStyle::Raised) {
    // Scaling to the same size hands out the shared pixels, which must not be drawn on.
    if (reduced.Data() == decoded.Data()) reduced = Copy(decoded);
    DrawBevel(reduced);
  }
  return Picture::FromPixels(std::move(reduced), picture.BitsPerPixel());
}

}  // namespace lumidex
