#pragma once
// The scenes of the gallery, drawn on a canvas whose grid is 400 units wide. The pictures fill 400 by 300,
// the signs stand free in 400 by 400.

#include "drawing/canvas.h"

namespace lumidex {

constexpr double SceneWidth = 400, SceneHeight = 300;

void DrawLighthouse(Canvas& canvas);  // a striped tower on a cliff at dusk
void DrawMountains(Canvas& canvas);   // ranges in the haze behind a lake
void DrawStillLife(Canvas& canvas);   // fruit and a jug on a table
void DrawParrot(Canvas& canvas);      // a bird among leaves
void DrawBalloons(Canvas& canvas);    // balloons over hills in the morning
void DrawRosette(Canvas& canvas);     // a tiling of twelve-pointed stars
void DrawSailboat(Canvas& canvas);    // a boat on waves, few flat colours
void DrawCat(Canvas& canvas);         // a cat at a window, made for black and white

void DrawStar(Canvas& canvas);          // a golden star
void DrawPointerArrow(Canvas& canvas);  // an arrow that points to the top left corner

}  // namespace lumidex
