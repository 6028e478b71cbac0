#pragma once
// Enhanced metafiles (EMF).

#include "pictures/codec.h"

namespace lumidex {

Match MatchEmf(const PictureData& data);
std::unique_ptr<Decoder> OpenEmf(const PictureData& data, const OpenOptions& options);

}  // namespace lumidex
