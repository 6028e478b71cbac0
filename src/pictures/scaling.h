#pragma once
// Smooth scaling of pixels.

#include "pictures/pixels.h"

namespace lumidex {

// A copy that is written without touching the original.
Pixels Copy(const Pixels& pixels);

// Area average where the picture gets smaller, bilinear where it gets larger; colours are weighed by their
// alpha. Keeps the format. The same size hands out the same shared pixels. A side below 1 raises
// InvalidPicture.
Pixels Scale(const Pixels& pixels, Size size);

}  // namespace lumidex
