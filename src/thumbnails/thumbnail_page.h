#pragma once
// The page of the thumbnail viewer: its cells are made, filled one after the other, and destroyed before the
// next.

#include "forms/app.h"

namespace lumidex {

// Makes and fills the cells from TopIndex on. Yields at every step of every cell, so that the window stays
// alive; a viewer that is closed meanwhile ends it.
void FillThumbnailPage(App& app);

// Destroys `count` cells, and those that stand behind them.
void UnloadThumbnailCells(App& app, int count);

}  // namespace lumidex
