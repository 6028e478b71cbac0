#pragma once
// Dr. Halo pictures (CUT): 256 colours, whose palette stands in a PAL file beside the picture.

#include "pictures/codec.h"

namespace lumidex {

Match MatchCut(const PictureData& data);
std::unique_ptr<Decoder> OpenCut(const PictureData& data, const OpenOptions& options);

}  // namespace lumidex
