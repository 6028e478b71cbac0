#pragma once
// GEM bit images (IMG, GEM): 1 to 8 planes or true colour, with the palettes of the later extensions.

#include "pictures/codec.h"

namespace lumidex {

Match MatchGem(const PictureData& data);
std::unique_ptr<Decoder> OpenGem(const PictureData& data, const OpenOptions& options);

}  // namespace lumidex
