#pragma once
// The factor of the main window's zoom menu.

#include "forms/app.h"

namespace lumidex {

// The factor of the first checked item of the zoom menu, 0 when none is.
float GetZoomFactor(App& app);
// The factor of one item: 0.25 to 2 in quarters for 1 to 8, then 3, 4, 5; 0 for others.
float ZoomFactorOf(int level);

}  // namespace lumidex
