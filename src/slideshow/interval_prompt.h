#pragma once
// The question for the seconds between two slides.

#include "forms/app.h"

namespace lumidex {

// Asks until the answer is 1 to 30 seconds; no number, and 0, keep what was set. A running show begins a new
// period. An answer beyond 16 bits raises Overflow.
void mnuSlideShowInterval_Click(App& app);

}  // namespace lumidex
