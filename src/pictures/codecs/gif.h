#pragma once
// GIF: the first frame on the whole of its screen.

#include "pictures/codec.h"

namespace lumidex {

Match MatchGif(const PictureData& data);
std::unique_ptr<Decoder> OpenGif(const PictureData& data, const OpenOptions& options);

}  // namespace lumidex
