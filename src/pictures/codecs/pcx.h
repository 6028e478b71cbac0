#pragma once
// PCX: 1 to 8 bits in 1 to 4 planes, from the line-art of the CGA to 32-bit colour.

#include "pictures/codec.h"

namespace lumidex {

Match MatchPcx(const PictureData& data);
std::unique_ptr<Decoder> OpenPcx(const PictureData& data, const OpenOptions& options);

}  // namespace lumidex
