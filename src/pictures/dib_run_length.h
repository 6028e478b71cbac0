#pragma once
// The run-length codings of device-independent bitmaps, 4, 8 and 24 bits a pixel.

#include "pictures/dib.h"

namespace lumidex {

// Writes into `pixels`, whose unwritten pixels keep what they hold; runs end at the row's edge.
void DecodeDibRunLength(const DibHeader& header, Bytes bytes, Pixels& pixels);

}  // namespace lumidex
