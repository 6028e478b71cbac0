#pragma once
// ICC profiles to put into pictures.

#include <cstdint>
#include <string>
#include <vector>

namespace lumidex {

enum class Lights {
  Srgb,
  Swapped,  // red and blue exchanged
  Wide,     // the corners of a space far beyond what screens show
};
enum class Curve { Srgb, Linear, Gamma18 };

// A colour profile that calls itself `name`.
std::vector<std::uint8_t> ColourProfileOf(const std::string& name, Lights lights, Curve curve);
// One that takes red for blue and blue for red, but is else sRGB.
std::vector<std::uint8_t> SwappedProfile();
// sRGB itself, under its name.
std::vector<std::uint8_t> SrgbProfile();
// A colour profile that goes by a table: sRGB's colours, inverted.
std::vector<std::uint8_t> InvertingTableProfile();
std::vector<std::uint8_t> GreyProfileOf(Curve curve);
// Four inks, each with a curve of its own, none of them quite pure.
std::vector<std::uint8_t> InksProfile();

}  // namespace lumidex
