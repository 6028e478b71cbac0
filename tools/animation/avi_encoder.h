#pragma once
// Writes an animation: frames of one size and one palette, run-length coded, in an AVI file with an index.

#include "gallery/encoders/indexed.h"

namespace lumidex {

// All frames have the size and the palette of the first. Raises std::invalid_argument without frames.
std::vector<std::uint8_t> EncodeAvi(const std::vector<IndexedPicture>& frames, int millisecondsPerFrame);

}  // namespace lumidex
