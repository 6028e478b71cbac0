#pragma once
// Colours of a space of three light sources, a curve for each: what most ICC profiles of cameras, screens and
// editors are. Converted to sRGB by their formula.

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <vector>

namespace lumidex {

class ColourCurves {
 public:
  struct Space {
    // The X, Y and Z that red, green and blue give at their full, for the white of profiles.
    std::array<std::array<double, 3>, 3> lights{};
    // From a stored channel, 0 to 1, to light, 0 to 1; of red, green, blue.
    std::array<std::function<double(double)>, 3> curves;
  };

  explicit ColourCurves(const Space& space);

  // True when no colour changes by more than a step of a byte.
  static bool IsSrgb(const Space& space);

  // Changes pixels in place; alpha stays.
  void Convert(std::span<std::uint32_t> words) const;
  // Red, green, blue, alpha of 16 bits each into pixels of straight alpha.
  void Convert(std::span<const std::uint16_t> channels, std::span<std::uint32_t> words) const;

 private:
  // How a light of sRGB is made of those of the space, in the steps of `bytes_`: blue, green, red.
  using Light = std::array<float, 4>;

  // Of red, green and blue, for each byte what it gives.
  std::array<std::array<Light, 256>, 3> lights_{};
  std::array<Light, 3> mixture_{};
  std::array<std::vector<float>, 3> deepCurves_;
  std::vector<std::uint8_t> bytes_;  // sRGB's byte for each step of light
};

}  // namespace lumidex
