#pragma once
// Microsoft Paint pictures, the forerunner of BMP.

#include "gallery/encoders/indexed.h"

namespace lumidex {

enum class MspVersion { One, Two };

// The picture must use BlackAndWhite(). Version 2 is run-length coded.
std::vector<std::uint8_t> EncodeMsp(const IndexedPicture& picture, MspVersion version = MspVersion::Two);

}  // namespace lumidex
