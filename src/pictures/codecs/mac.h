#pragma once
// MacPaint pictures (MAC): 576 by 720 dots in black and white, bare or in a MacBinary wrapper.

#include "pictures/codec.h"

namespace lumidex {

Match MatchMac(const PictureData& data);
std::unique_ptr<Decoder> OpenMac(const PictureData& data, const OpenOptions& options);

}  // namespace lumidex
