#pragma once
// WordPerfect graphics that hold one bitmap.

#include "gallery/encoders/indexed.h"

namespace lumidex {

// Version 1: 1, 2, 4 or 8 bits a pixel, the fewest that the palette fits, run-length coded. A picture of two
// colours is shown black and white, in this order.
std::vector<std::uint8_t> EncodeWpg(const IndexedPicture& picture);

}  // namespace lumidex
