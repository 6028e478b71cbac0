#pragma once
// TIFF, through libtiff: the first page, whatever its samples are.

#include "pictures/codec.h"

namespace lumidex {

Match MatchTiff(const PictureData& data);
std::unique_ptr<Decoder> OpenTiff(const PictureData& data, const OpenOptions& options);

}  // namespace lumidex
