#pragma once
// The colours that tests draw and look for: as pixels, and as the metafiles and their tests write them.

#include <cstdint>

// 0xAARRGGBB, opaque.
namespace lumidex::argb {
constexpr std::uint32_t red = 0xFFFF0000, green = 0xFF00FF00, blue = 0xFF0000FF;
constexpr std::uint32_t white = 0xFFFFFFFF, black = 0xFF000000;
}  // namespace lumidex::argb

// 0xRRGGBB.
namespace lumidex::rgb {
constexpr std::uint32_t red = 0xFF0000, green = 0x00FF00, blue = 0x0000FF, white = 0xFFFFFF, black = 0;
}  // namespace lumidex::rgb
