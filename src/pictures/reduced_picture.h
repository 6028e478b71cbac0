#pragma once
// Small copies of pictures, as previews and thumbnails are made of.

#include "pictures/picture.h"

namespace lumidex {

enum class ReducedStyle {
  Flat,
  Raised  // with a bevelled edge, light above and left, dark below and right
};

// The size at which `full` fits a square of `square` pixels, proportions kept, each side at least 1; never
// enlarged.
Size ReducedSize(Size full, int square);

// A copy that fits the square. The depth stays the picture's own. Its pixels are made when they are first
// needed, and until then it holds the picture.
Picture ReducedPicture(const Picture& picture, int square, ReducedStyle style = ReducedStyle::Flat);

}  // namespace lumidex
