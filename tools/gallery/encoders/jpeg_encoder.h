#pragma once
// Baseline or progressive JPEG of the three colour channels.

#include <cstdint>
#include <vector>

namespace lumidex {

class Pixels;

enum class JpegKind { Baseline, Progressive };

// `quality` from 1 to 100.
std::vector<std::uint8_t> EncodeJpeg(const Pixels& pixels, int quality, JpegKind kind = JpegKind::Baseline);

}  // namespace lumidex
