#pragma once
// PNG, through libpng: all depths and colour types, interlaced or not.

#include "pictures/codec.h"

namespace lumidex {

Match MatchPng(const PictureData& data);
std::unique_ptr<Decoder> OpenPng(const PictureData& data, const OpenOptions& options);

}  // namespace lumidex
