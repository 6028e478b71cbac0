#pragma once
// Windows icons and cursors: a directory of pictures at 32 bits a pixel, each with its mask.

#include <cstdint>
#include <span>
#include <vector>

namespace lumidex {

class Pixels;

// Each picture at most 256 on a side.
std::vector<std::uint8_t> EncodeIcon(std::span<const Pixels> pictures);
// The hot spot is in pixels from the top left corner.
std::vector<std::uint8_t> EncodeCursor(const Pixels& picture, int hotX, int hotY);

}  // namespace lumidex
