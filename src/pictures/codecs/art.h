#pragma once
// PFS: First Publisher clip art (ART): black and white, in screen or print resolution.

#include "pictures/codec.h"

namespace lumidex {

Match MatchArt(const PictureData& data);
std::unique_ptr<Decoder> OpenArt(const PictureData& data, const OpenOptions& options);

}  // namespace lumidex
