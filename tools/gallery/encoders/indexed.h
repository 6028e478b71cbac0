#pragma once
// Pictures reduced to a palette: choosing the colours and spreading the error, for the formats that hold
// few of them.

#include <cstdint>
#include <span>
#include <vector>

#include "pictures/size.h"

namespace lumidex {

class Pixels;

using Colours = std::vector<std::uint32_t>;  // 0xAARRGGBB

// At most 256 colours; one byte a pixel, rows top-down without padding.
struct IndexedPicture {
  Size size;
  Colours palette;
  std::vector<std::uint8_t> indices;

  std::span<const std::uint8_t> Row(int y) const {
    const auto width = static_cast<std::size_t>(size.width);
    return std::span(indices).subspan(static_cast<std::size_t>(y) * width, width);
  }
};

// Black and white, the sixteen colours of a VGA in its own order, and `count` even steps of grey.
Colours BlackAndWhite();
Colours VgaColours();
Colours GreyColours(int count);
// At most `count` colours that fit the picture, by cutting its colour space at the median.
Colours MedianCut(const Pixels& pixels, int count);

enum class Dithering { None, ErrorDiffusion };

// Every pixel becomes an entry of the palette; alpha is left out of account.
IndexedPicture Reduce(const Pixels& pixels, const Colours& palette, Dithering dithering);
// The same as pixels again, for encoders that find the palette themselves.
Pixels Expand(const IndexedPicture& picture);

}  // namespace lumidex
