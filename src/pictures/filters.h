#pragma once
// Filters on whole pictures. Each channel of each pixel is changed on its own; transparency stays.
//
// Pixels that nobody else holds are changed in place, shared ones are replaced by a changed copy; when memory
// for that can not be had they stay as they were. Every amount goes from -100 to 100, where 0 changes
// nothing; others raise InvalidCall.

#include "pictures/pixels.h"

namespace lumidex {

// Adds that many hundredths of the full range to every channel, cut off at its ends: -100 gives black, 100
// white.
void Brighten(Pixels& pixels, int amount);

// Stretches every channel away from its middle, 127.5: below 0 by 1 + amount/100, so that -100 gives grey;
// above by 100 / (100 - amount), at most 64, where little but black and white is left.
void ChangeContrast(Pixels& pixels, int amount);

// Adds to each channel as brightening does.
void BalanceColours(Pixels& pixels, int red, int green, int blue);

}  // namespace lumidex
