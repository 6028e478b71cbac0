#pragma once
// A GIF of one frame.

#include "gallery/encoders/indexed.h"

namespace lumidex {

std::vector<std::uint8_t> EncodeGif(const IndexedPicture& picture);

}  // namespace lumidex
