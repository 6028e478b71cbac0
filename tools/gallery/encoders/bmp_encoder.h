#pragma once
// Windows bitmaps (BMP, DIB, RLE): a file header, the 40-byte information header, bottom-up rows.

#include "gallery/encoders/indexed.h"

namespace lumidex {

// 24 bits a pixel, uncompressed.
std::vector<std::uint8_t> EncodeBmp(const Pixels& pixels);
// 1, 4 or 8 bits a pixel, the fewest that the palette fits, uncompressed.
std::vector<std::uint8_t> EncodeBmp(const IndexedPicture& picture);
// Run-length compressed, 4 bits a pixel up to sixteen colours, else 8.
std::vector<std::uint8_t> EncodeRunLengthBmp(const IndexedPicture& picture);

}  // namespace lumidex
