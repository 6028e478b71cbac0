#pragma once
// Pictor / PC Paint pictures.

#include "gallery/encoders/indexed.h"

namespace lumidex {

// Up to 2 colours are stored at one bit in black and white, up to 16 in four planes, else in bytes; palettes
// keep six bits a component.
std::vector<std::uint8_t> EncodePic(const IndexedPicture& picture);

}  // namespace lumidex
