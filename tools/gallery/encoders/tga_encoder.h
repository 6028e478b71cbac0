#pragma once
// TGA: 24 or 32 bits a pixel, or up to 256 colours, with the footer of version 2.0.

#include "gallery/encoders/indexed.h"

namespace lumidex {

struct TgaForm {
  bool runLength = true;
  bool topDown = false;
  bool rightToLeft = false;
};

// 32 bits when the pixels have alpha, else 24.
std::vector<std::uint8_t> EncodeTga(const Pixels& pixels, const TgaForm& form = {});
// 8 bits and a colour map.
std::vector<std::uint8_t> EncodeTga(const IndexedPicture& picture, const TgaForm& form = {});

}  // namespace lumidex
