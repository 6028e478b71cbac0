#pragma once
// Icons and cursors: of the pictures in the file the largest, then the deepest.

#include "pictures/codec.h"

namespace lumidex {

Match MatchIco(const PictureData& data);
std::unique_ptr<Decoder> OpenIco(const PictureData& data, const OpenOptions& options);
Match MatchCur(const PictureData& data);
std::unique_ptr<Decoder> OpenCur(const PictureData& data, const OpenOptions& options);

}  // namespace lumidex
