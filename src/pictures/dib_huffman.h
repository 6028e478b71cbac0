#pragma once
// Bitmaps of OS/2 whose single bits are coded as a fax machine codes them, run by run.

#include "pictures/dib.h"

namespace lumidex {

// Decodes into `pixels`, which has the header's size. Rows that are missing are white.
void DecodeDibHuffman(const DibHeader& header, Bytes bytes, Pixels& pixels);

}  // namespace lumidex
