#pragma once
// IFF pictures that keep whole colours instead of planes: RGB8 and RGBN of the ray tracers, and DEEP of the
// paint programs for frame buffers.

#include <array>
#include <cstdint>
#include <vector>

#include "pictures/picture_data.h"
#include "pictures/pixels.h"

namespace lumidex {

// What stands at one place of a DEEP pixel.
struct DeepElement {
  enum Kind : unsigned { Red = 1, Green = 2, Blue = 3, Alpha = 4 };
  unsigned kind = 0;  // others than these are passed over
  unsigned bits = 0;
};

// RGB8 (`wide`): three bytes of colour and one whose low seven bits count; RGBN: a word with twelve bits of
// colour and three that count. Where the count is 0 a byte follows with it, and a word where that is 0 too.
// Both return how many rows were whole.
int UnpackColourRuns(Bytes body, bool wide, Pixels& pixels);

// The sixteen steps by which a component may differ from its left neighbour.
using DeepSteps = std::array<int, 16>;

// Rows of `elements` one behind the other, each component as half bytes that choose a step from the left
// neighbour (0 for the first pixel); behind a choice of step 0 a half byte counts pixels like the last one,
// less one. Each component of a row begins with a whole byte. As below.
int UnpackDeepSteps(Bytes body, const std::vector<DeepElement>& elements, const DeepSteps& steps,
                    Pixels& pixels);

// Pixels made of `elements`, of eight bits each; `packed`: in runs of whole pixels, counted as PackBits
// counts bytes. Alpha is left straight.
int UnpackDeepPixels(Bytes body, const std::vector<DeepElement>& elements, bool packed, Pixels& pixels);

}  // namespace lumidex
