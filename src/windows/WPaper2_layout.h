#pragma once
// The main window's layout rule.

#include "forms/app.h"

namespace lumidex {

// Keeps the window at 9500 by 6400 twips at least, lays the controls out for its size, and brings the picture
// up anew for the new area.
void WPaper2_Resize(App& app);

// Brings a window that is higher than the screen back to a height that fits.
void WPaper2_Click(App& app);

}  // namespace lumidex
