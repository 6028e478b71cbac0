#pragma once
// Windows metafiles (WMF), with the placing header or without.

#include "pictures/codec.h"

namespace lumidex {

Match MatchWmf(const PictureData& data);
std::unique_ptr<Decoder> OpenWmf(const PictureData& data, const OpenOptions& options);

}  // namespace lumidex
