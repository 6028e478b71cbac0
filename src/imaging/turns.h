#pragma once
// Turning and mirroring the working image. What comes of it is shown in the box as it stands and lives in
// memory alone: the next load of any file discards it.

#include "forms/app.h"

namespace lumidex {

enum class Turn : std::int16_t { Left = 0, Right = 1 };

// Turns by so many quarters, one after the other. A quarter that can't be turned is told in a message and
// ends it; what was turned before stays turned, though it is not shown.
void RotateImage(App& app, Turn turn, int quarters);

// Mirrors the image left to right.
void FlipImageHorizontally(App& app);
// Mirrors the image top to bottom.
void FlipImageVertically(App& app);

}  // namespace lumidex
