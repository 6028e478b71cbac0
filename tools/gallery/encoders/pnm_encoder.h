#pragma once
// The portable bitmaps, greymaps and pixmaps, plain (digits) or raw (bytes).

#include "gallery/encoders/indexed.h"

namespace lumidex {

enum class PnmKind { Plain, Raw };

// The picture must use BlackAndWhite().
std::vector<std::uint8_t> EncodePbm(const IndexedPicture& picture, PnmKind kind);
// 256 levels of grey, from the luma of each pixel.
std::vector<std::uint8_t> EncodePgm(const Pixels& pixels, PnmKind kind);
std::vector<std::uint8_t> EncodePpm(const Pixels& pixels, PnmKind kind);

}  // namespace lumidex
