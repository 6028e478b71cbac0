#pragma once
// Slow-scan television pictures (HRZ): 256 by 240 pixels of red, green and blue, and no header.

#include "pictures/codec.h"

namespace lumidex {

Match MatchHrz(const PictureData& data);
std::unique_ptr<Decoder> OpenHrz(const PictureData& data, const OpenOptions& options);

}  // namespace lumidex
