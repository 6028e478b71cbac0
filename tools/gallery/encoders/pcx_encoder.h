#pragma once
// PCX of version 5, run-length coded.

#include "gallery/encoders/indexed.h"

namespace lumidex {

// 24 bits in three planes; 32 in four when the pixels have alpha.
std::vector<std::uint8_t> EncodePcx(const Pixels& pixels);
// The fewest bits that the palette fits: 1, 4 (in four planes) or 8. A picture of two colours is shown black
// and white, in this order, whatever its palette says.
std::vector<std::uint8_t> EncodePcx(const IndexedPicture& picture);

}  // namespace lumidex
