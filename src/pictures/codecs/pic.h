#pragma once
// Pictor / PC Paint pictures (PIC): 2 to 256 colours, packed or in planes.

#include "pictures/codec.h"

namespace lumidex {

Match MatchPic(const PictureData& data);
std::unique_ptr<Decoder> OpenPic(const PictureData& data, const OpenOptions& options);

}  // namespace lumidex
