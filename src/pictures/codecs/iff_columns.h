#pragma once
// The column-wise run-length code of the Atari's ILBM files: each plane in a chunk of its own.

#include <cstddef>
#include <cstdint>
#include <vector>

#include "pictures/picture_data.h"

namespace lumidex {

// Unpacks the VDAT chunks in `body` into whole planes, one behind the other, of `height` rows of `stride`
// bytes each (even). What is missing stays 0.
std::vector<std::uint8_t> UnpackColumns(Bytes body, int planes, std::size_t stride, int height);

}  // namespace lumidex
