#pragma once
// The pictures of the windows: the folders of the directory dialog, and what a thumbnail page shows where it
// has no picture.

#include "drawing/canvas.h"

namespace lumidex {

// On IconGrid.
void DrawDesktopFolder(Canvas& canvas);
void DrawDocumentsFolder(Canvas& canvas);
void DrawFavouritesFolder(Canvas& canvas);

// On IconGrid: an empty place, and a picture that could not be shown.
void DrawEmptyThumbnail(Canvas& canvas);
void DrawErrorThumbnail(Canvas& canvas);

}  // namespace lumidex
