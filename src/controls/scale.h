#pragma once
// The units in which positions and sizes are told.

namespace lumidex {

enum class ScaleMode : int { User = 0, Twips = 1, Points = 2, Pixels = 3 };

// Twips to a pixel on every platform: positions are given in twips and a view maps them as it likes.
inline constexpr float twipsPerPixel = 15.0F;

constexpr float TwipsPerUnit(ScaleMode mode) {
  return mode == ScaleMode::Pixels ? twipsPerPixel : mode == ScaleMode::Points ? 20.0F : 1.0F;
}

}  // namespace lumidex
