#pragma once
// Baseline or progressive JPEG of the three colour channels.

#include <cstdint>
#include <vector>

#include "pictures/pixels.h"

namespace lumidex {

enum class JpegKind { Baseline, Progressive };

// `quality` from 1 to 100.
std::vector<std::uint8_t> EncodeJpeg(const Pixels& pixels, int quality, JpegKind kind = JpegKind::Baseline);

}  // namespace lumidex
