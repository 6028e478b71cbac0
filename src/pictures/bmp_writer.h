#pragma once
// Writes bitmap files.

#include "pictures/byte_sink.h"
#include "pictures/pixels.h"

namespace lumidex {

// A Windows bitmap, uncompressed, rows bottom-up: opaque pixels with 24 bits each behind the 40-byte header
// that every reader knows, transparent ones with 32 bits behind the 108-byte one that names the alpha mask.
// Raises InvalidPicture for no pixels and when the file would not fit the format's 32-bit length, and what
// the sink raises.
void WriteBmp(const Pixels& pixels, ByteSink& sink);

}  // namespace lumidex
