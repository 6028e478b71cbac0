#pragma once
// WPG: WordPerfect graphics of versions 1 and 2 that hold a bitmap. The first bitmap is shown; lines, text
// and other drawing records are passed over.

#include "pictures/codec.h"

namespace lumidex {

Match MatchWpg(const PictureData& data);
std::unique_ptr<Decoder> OpenWpg(const PictureData& data, const OpenOptions& options);

}  // namespace lumidex
