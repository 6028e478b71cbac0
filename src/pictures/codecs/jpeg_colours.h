#pragma once
// The decoder's choices as libjpeg wants them, and pictures that it has brought down to 256 colours.

#include <cstdio>

#include <jpeglib.h>

#include "pictures/decoder_options.h"
#include "pictures/palettes.h"
#include "pictures/pixels.h"

namespace lumidex {

// After the header, before the size is worked out; also says what samples come out.
void ChooseDecoding(jpeg_decompress_struct& info, const DecoderOptions& options);

// The colours of a reduced picture, once its output has been started.
Palette ReducedColours(const jpeg_decompress_struct& info);

// The next row of a reduced picture; false when there was none.
bool ReadReducedRow(jpeg_decompress_struct& info, const Palette& colours, std::span<std::uint8_t> indexes,
                    std::span<std::uint32_t> row);

}  // namespace lumidex
