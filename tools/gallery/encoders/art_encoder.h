#pragma once
// PFS: First Publisher clip art.

#include "gallery/encoders/indexed.h"

namespace lumidex {

enum class ArtKind { Screen, Print };

// The picture must use BlackAndWhite(). `Print` is the packed form of 300 dots an inch.
std::vector<std::uint8_t> EncodeArt(const IndexedPicture& picture, ArtKind kind = ArtKind::Screen);

}  // namespace lumidex
