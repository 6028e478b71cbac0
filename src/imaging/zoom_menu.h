#pragma once
// The zoom menu of the main window and the toolbar's two zoom buttons.

#include "forms/app.h"

namespace lumidex {

// The click of an item of the zoom menu.
void SelectZoomLevel(App& app, int level);
// The toolbar's zoom steps; they stop at the ends.
void StepZoomDown(App& app);
void StepZoomUp(App& app);

}  // namespace lumidex
