#pragma once
// Windows and OS/2 bitmaps: BMP files, run-length ones under any name, and bitmaps without a file header.

#include "pictures/codec.h"

namespace lumidex {

Match MatchBmp(const PictureData& data);
std::unique_ptr<Decoder> OpenBmp(const PictureData& data, const OpenOptions& options);

}  // namespace lumidex
