#pragma once
// Rows of three whole bytes a pixel, as most true-colour formats store them.

#include <cstdint>
#include <span>

#include "pictures/picture_data.h"

namespace lumidex {

// Opaque pixels of as many bytes as there are; `row` must have room for a third of them.
void JoinRgb(Bytes bytes, std::span<std::uint32_t> row);
void JoinBgr(Bytes bytes, std::span<std::uint32_t> row);

}  // namespace lumidex
