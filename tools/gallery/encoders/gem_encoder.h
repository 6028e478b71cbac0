#pragma once
// GEM bit images: plain ones in black and white, and XIMG with the palette in the header.

#include "gallery/encoders/indexed.h"

namespace lumidex {

// The picture must use BlackAndWhite().
std::vector<std::uint8_t> EncodeGem(const IndexedPicture& picture);
// As many planes as the palette needs, up to eight. Components are kept in steps of a thousandth.
std::vector<std::uint8_t> EncodeXimg(const IndexedPicture& picture);

}  // namespace lumidex
