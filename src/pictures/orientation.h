#pragma once
// The eight ways in which a stored picture may have to be turned and mirrored to stand upright.

#include "pictures/size.h"

namespace lumidex {

class Pixels;

// Values as EXIF and TIFF number them; each names what is done to the stored pixels.
enum class Orientation {
  Upright = 1,
  MirrorLeftRight = 2,
  HalfTurn = 3,
  MirrorTopBottom = 4,
  Transpose = 5,     // mirrored about the falling diagonal
  QuarterRight = 6,  // a quarter turn clockwise
  Transverse = 7,    // mirrored about the rising diagonal
  QuarterLeft = 8,   // a quarter turn counter-clockwise
};

// The number as files hold it; anything outside 1 to 8 is Upright.
Orientation OrientationOf(int number);

constexpr bool SwapsSides(Orientation orientation) {
  return orientation >= Orientation::Transpose;
}
constexpr Size TurnedSize(Size size, Orientation orientation) {
  return SwapsSides(orientation) ? Size{size.height, size.width} : size;
}

// Upright pixels are shared, not copied.
Pixels Turned(const Pixels& pixels, Orientation orientation);

}  // namespace lumidex
