#pragma once
// The pictures of the windows: the program's icon, the folders of the directory dialog, splash and
// backdrop, and what a thumbnail page shows where it has no picture.

#include "drawing/canvas.h"

namespace lumidex {

// A prism that splits light, on a dark tile. Any grid; leaves out detail below 32 pixels.
void DrawProgramIcon(Canvas& canvas, int pixels);

// On IconGrid.
void DrawDesktopFolder(Canvas& canvas);
void DrawDocumentsFolder(Canvas& canvas);
void DrawFavouritesFolder(Canvas& canvas);

// On a grid 480 wide, 320 high: light through an aperture and a prism in the upper half, the lower half
// calm for the text that the window writes.
void DrawSplash(Canvas& canvas);
// On a grid 512 wide, 384 high: faint tints with alpha, so that the window's own colour stays its ground.
void DrawBackdrop(Canvas& canvas);
// On IconGrid: an empty place, and a picture that could not be shown.
void DrawEmptyThumbnail(Canvas& canvas);
void DrawErrorThumbnail(Canvas& canvas);

// What plays while a search runs, as frames side by side: a lens that wanders over three folders. On a grid
// 96 wide, 64 high.
constexpr int SearchFrames = 16;
void DrawSearchFrame(Canvas& canvas, int frame);

}  // namespace lumidex
