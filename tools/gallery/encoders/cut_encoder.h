#pragma once
// Dr. Halo pictures and the palette files beside them.

#include "gallery/encoders/indexed.h"

namespace lumidex {

std::vector<std::uint8_t> EncodeCut(const IndexedPicture& picture);
// The PAL file that belongs to a picture of this palette.
std::vector<std::uint8_t> EncodeCutPalette(const Colours& palette);

}  // namespace lumidex
