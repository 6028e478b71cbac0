#pragma once
// JPEG, through libjpeg-turbo: baseline, progressive and arithmetic, with 1, 3 or 4 components of 8 bits.
// Reduced sizes are made inside the inverse transform.

#include "pictures/codec.h"

namespace lumidex {

Match MatchJpeg(const PictureData& data);
std::unique_ptr<Decoder> OpenJpeg(const PictureData& data, const OpenOptions& options);

}  // namespace lumidex
