#pragma once
// The portable bitmaps: PBM, PGM and PPM, plain and raw, and PAM.

#include "pictures/codec.h"

namespace lumidex {

Match MatchPnm(const PictureData& data);
std::unique_ptr<Decoder> OpenPnm(const PictureData& data, const OpenOptions& options);

}  // namespace lumidex
