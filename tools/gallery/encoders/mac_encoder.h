#pragma once
// MacPaint pictures.

#include "gallery/encoders/indexed.h"

namespace lumidex {

enum class MacWrapper { None, MacBinary };

// The picture must be 576 by 720 and use BlackAndWhite().
std::vector<std::uint8_t> EncodeMac(const IndexedPicture& picture, MacWrapper wrapper = MacWrapper::None);

}  // namespace lumidex
