#pragma once
// Microsoft Paint pictures (MSP), versions 1 and 2: black and white.

#include "pictures/codec.h"

namespace lumidex {

Match MatchMsp(const PictureData& data);
std::unique_ptr<Decoder> OpenMsp(const PictureData& data, const OpenOptions& options);

}  // namespace lumidex
