#pragma once
// Converts colours as a file's embedded ICC profile means them into sRGB.

#include <cstdint>
#include <memory>
#include <span>

#include "pictures/picture_data.h"

namespace lumidex {

enum class ProfileInput {
  Words,         // pixels (0xAARRGGBB) of a grey or colour profile
  Cmyk,          // four bytes a pixel, 255 is full ink
  CmykInverted,  // four bytes a pixel, 0 is full ink
};

class ColourProfile {
 public:
  // Null when the bytes are no usable profile, one of another kind of colour, or sRGB already.
  static std::unique_ptr<ColourProfile> FromIcc(Bytes icc, ProfileInput input);
  ~ColourProfile();
  ColourProfile(const ColourProfile&) = delete;
  ColourProfile& operator=(const ColourProfile&) = delete;

  // Changes pixels in place; alpha stays. For ProfileInput::Words.
  void Convert(std::span<std::uint32_t> words) const;
  // Four bytes a pixel into opaque pixels. For the inputs of four inks.
  void ConvertInks(Bytes inks, std::span<std::uint32_t> words) const;

 private:
  struct State;
  explicit ColourProfile(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

// Without a profile: each ink takes its share of the light. `inverted`: 0 is full ink.
void ConvertInksPlainly(Bytes inks, bool inverted, std::span<std::uint32_t> words);

}  // namespace lumidex
