#pragma once
// Sun raster files, plain or run-length coded.

#include "gallery/encoders/indexed.h"

namespace lumidex {

enum class RasForm { Plain, RunLength };

// 24 bits a pixel.
std::vector<std::uint8_t> EncodeRas(const Pixels& pixels, RasForm form = RasForm::RunLength);
// 8 bits and a colour map; 1 bit without one for two colours, shown black (0) and white whatever they are.
std::vector<std::uint8_t> EncodeRas(const IndexedPicture& picture, RasForm form = RasForm::RunLength);

}  // namespace lumidex
