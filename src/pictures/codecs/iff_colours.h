#pragma once
// The display modes of the Amiga that show more colours than the palette holds: half-bright copies of the
// palette, and hold-and-modify, where a pixel may change one component of its left neighbour.

#include <cstdint>
#include <span>

#include "pictures/codecs/iff_chunks.h"

namespace lumidex {

enum class IffMode { Indexed, HalfBright, HoldAndModify, TrueColour };

// The mode that the display mode chunk asks for, or that the number of planes and colours gives away.
IffMode ModeOf(const IffPicture& picture);

// The 256 colours by index: greys where the file has none, the half-bright copies and the transparent colour
// (alpha 0) where they are asked for.
Palette PaletteOf(const IffPicture& picture, IffMode mode);

// Turns the codes of one row of hold-and-modify pixels, of 5 to 8 `planes`, into pixels. A row begins as if
// entry 0 stood to its left.
void HoldAndModify(Bytes codes, int planes, const Palette& palette, std::span<std::uint32_t> pixels);

}  // namespace lumidex
