#pragma once
// The main window's background: the plain colour or one of seven ramps.

#include "forms/app.h"

namespace lumidex {

// Paints background 0 (plain) to 7 and keeps the index in ColorMNU; another index paints nothing and is kept
// all the same. While the alternate background is on nothing happens at all.
void SetWindowColor(App& app, std::int16_t index);

// Draws 128 bands of 4 pixels on the form, from half to full brightness downwards, in those of the three
// colours that are on.
void PaintGradient(Form& form, bool red, bool green, bool blue);

}  // namespace lumidex
