#pragma once
// TGA: true colour, grey and mapped pictures of 1 to 32 bits, plain or run-length coded.

#include "pictures/codec.h"

namespace lumidex {

Match MatchTga(const PictureData& data);
std::unique_ptr<Decoder> OpenTga(const PictureData& data, const OpenOptions& options);

}  // namespace lumidex
