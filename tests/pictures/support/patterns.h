#pragma once
// Pictures that tests encode and expect back.

#include "gallery/encoders/indexed.h"
#include "pictures/pixels.h"

namespace lumidex {

// Slanting stripes, long and short runs and a blank band, so that every way of coding a row occurs. Uses all
// colours of the palette.
IndexedPicture Stripes(Size size, const Colours& palette);
// `count` colours, all different, whose components are multiples of 255/15 and so survive six bits.
Colours DistinctColours(int count);
// Flat and changing stretches of 24-bit colour; with alpha, also clear and half clear pixels.
Pixels ColourPattern(Size size, PixelFormat format = PixelFormat::Rgb);

}  // namespace lumidex
