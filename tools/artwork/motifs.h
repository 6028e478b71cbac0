#pragma once
// A small sign for each file type, drawn on IconGrid: things first, then patterns of pixels and lines.

#include "drawing/canvas.h"

namespace lumidex {

void DrawEasel(Canvas& canvas);
void DrawScissors(Canvas& canvas);
void DrawPointer(Canvas& canvas);
void DrawJewel(Canvas& canvas);
void DrawFilm(Canvas& canvas);
void DrawTelevision(Canvas& canvas);
void DrawFramedPicture(Canvas& canvas);
void DrawCamera(Canvas& canvas);
void DrawBrush(Canvas& canvas);
void DrawComputer(Canvas& canvas);
void DrawPencil(Canvas& canvas);
void DrawPalette(Canvas& canvas);
void DrawPaintPot(Canvas& canvas);
void DrawSun(Canvas& canvas);
void DrawTarget(Canvas& canvas);
void DrawTag(Canvas& canvas);
void DrawPen(Canvas& canvas);

void DrawWindowOfPixels(Canvas& canvas);
void DrawPixelGrid(Canvas& canvas);
void DrawCurve(Canvas& canvas);
void DrawTiles(Canvas& canvas);
void DrawChunks(Canvas& canvas);
void DrawChequers(Canvas& canvas);
void DrawGreySteps(Canvas& canvas);
void DrawColourSteps(Canvas& canvas);
void DrawThreeMaps(Canvas& canvas);
void DrawNetwork(Canvas& canvas);
void DrawRuns(Canvas& canvas);
void DrawShapes(Canvas& canvas);

}  // namespace lumidex
