#pragma once
// What windows say about a picture's facts.

#include <cstdint>
#include <string>

namespace lumidex {

// A side in pixels; "Unknown" for 0.
std::string LengthText(std::int16_t pixels);
// How many colours so many bits a pixel can tell apart; "Unknown" for 0. Raises Overflow for more than a
// 64-bit float can hold.
std::string ColoursText(float bitsPerPixel);

}  // namespace lumidex
