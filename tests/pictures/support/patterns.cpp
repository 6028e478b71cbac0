#include "pictures/support/patterns.h"

namespace lumidex {

IndexedPicture Stripes(Size size, const Colours& palette) {
  const std::size_t width = static_cast<std::size_t>(size.width);
  const std::size_t height = static_cast<std::size_t>(size.height);
  IndexedPicture picture{size, palette, std::vector<std::uint8_t>(width * height)};
  const std::size_t colours = palette.size();
  for (std::size_t y = 0; y < height; ++y) {
    for (std::size_t x = 0; x < width; ++x) {
      const bool isBand = y % 8 == 5 || y % 8 == 6;
      const bool isFine = x < width / 2;
      const std::size_t stripe = isFine ? x + y * 3 : (x + y) / 19 + y;
      picture.indices[y * width + x] = static_cast<std::uint8_t>(isBand ? colours - 1 : stripe % colours);
    }
  }
  return picture;
}

Colours DistinctColours(int count) {
  Colours colours;
  for (unsigned i = 0; i < static_cast<unsigned>(count); ++i) {
    const unsigned red = (i & 15) * 17, green = (i >> 4) * 17, blue = (15 - (i & 15)) * 17;
    colours.push_back(0xFF000000U | red << 16 | green << 8 | blue);
  }
  return colours;
}

Pixels ColourPattern(Size size, PixelFormat format) {
  Pixels pixels = Pixels::Make(size, format, 0);
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      const bool flat = x < size.width / 2;
      const auto red = static_cast<std::uint32_t>(flat ? 200 : x * 37 & 255);
      const auto green = static_cast<std::uint32_t>(y * 11 & 255);
      const auto blue = static_cast<std::uint32_t>(flat ? 128 : (x ^ y) & 255);
      const std::uint32_t alpha = format == PixelFormat::Rgb ? 255 : static_cast<std::uint32_t>(x * 85 % 256);
      pixels.Row(y)[static_cast<std::size_t>(x)] =
          alpha == 0 ? 0 : alpha << 24 | red << 16 | green << 8 | blue;
    }
  }
  return pixels;
}

}  // namespace lumidex
