#pragma once
// Values inside of records that both kinds of metafile share.

namespace lumidex::metafile {

// 1 is transparent.
inline constexpr unsigned opaqueBackgroundMode = 2;
// 1 is even-odd.
inline constexpr unsigned windingFillMode = 2;
inline constexpr unsigned rightToLeftLayout = 1;
// Of a flood fill: as far as the colour goes. 0 is up to the colour.
inline constexpr unsigned floodFillsSurface = 1;
// The colours of a bitmap are positions in the palette.
inline constexpr unsigned palettePositions = 1;

namespace brush_style {
inline constexpr unsigned null = 1, hatched = 2, pattern = 3;
}

namespace text_option {
inline constexpr unsigned fillsBox = 0x2, clipsToBox = 0x4;
}

}  // namespace lumidex::metafile
