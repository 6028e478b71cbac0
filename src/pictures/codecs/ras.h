#pragma once
// RAS: Sun raster files of 1 to 32 bits, plain or run-length coded.

#include "pictures/codec.h"

namespace lumidex {

Match MatchRas(const PictureData& data);
std::unique_ptr<Decoder> OpenRas(const PictureData& data, const OpenOptions& options);

}  // namespace lumidex
