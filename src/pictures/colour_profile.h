#pragma once
// Converts colours as a file's embedded ICC profile means them into sRGB.

#include <cstdint>
#include <memory>
#include <span>

#include "pictures/picture_data.h"

namespace lumidex {

enum class ProfileInput {
  Words,         // pixels (0xAARRGGBB) of a grey or colour profile
  DeepWords,     // the same with 16 bits a channel
  Cmyk,          // four bytes a pixel, 255 is full ink
  CmykInverted,  // four bytes a pixel, 0 is full ink
};

class ColourProfile {
 public:
  // Null when the bytes are no usable profile, one of another kind of colour, or when no colour would change
  // by more than a step. `pixels` is about how many there will be to convert.
  static std::unique_ptr<ColourProfile> FromIcc(Bytes icc, ProfileInput input, std::int64_t pixels);
  virtual ~ColourProfile() = default;
  ColourProfile(const ColourProfile&) = delete;
  ColourProfile& operator=(const ColourProfile&) = delete;

  // Converts in place. Of ProfileInput::Words alpha stays; of four inks, whose four bytes lie in each word as
  // they lie in the file, come opaque pixels.
  virtual void Convert(std::span<std::uint32_t> words) const = 0;
  // For ProfileInput::DeepWords: red, green, blue and alpha of 16 bits each into pixels of straight alpha. It
  // keeps dark shades apart that 8 bits of light do not.
  virtual void ConvertDeep(std::span<const std::uint16_t> channels, std::span<std::uint32_t> words) const = 0;

 protected:
  ColourProfile() = default;
};

// Without a profile: each ink takes its share of the light. As ColourProfile::Convert; `inverted`: 0 is full
// ink.
void ConvertInksPlainly(bool inverted, std::span<std::uint32_t> words);

}  // namespace lumidex
