#pragma once
// IFF and LBM: the interleaved, contiguous and chunky bitmaps (ILBM, ACBM, PBM) of the Amiga and its
// neighbours, with the display modes that show more colours than the palette holds.

#include "pictures/codec.h"

namespace lumidex {

Match MatchIff(const PictureData& data);
std::unique_ptr<Decoder> OpenIff(const PictureData& data, const OpenOptions& options);

}  // namespace lumidex
