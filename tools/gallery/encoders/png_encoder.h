#pragma once
// PNG at the strongest compression.

#include "gallery/encoders/indexed.h"

namespace lumidex {

// 8 bits a channel, with alpha when the pixels have one.
std::vector<std::uint8_t> EncodePng(const Pixels& pixels);
// With a palette of 1, 2, 4 or 8 bits.
std::vector<std::uint8_t> EncodePng(const IndexedPicture& picture);

}  // namespace lumidex
