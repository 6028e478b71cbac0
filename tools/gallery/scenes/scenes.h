#pragma once
// The scenes of the gallery. A picture fills 400 by 300 units; a poster stands in the middle of that in 240
// by 300, a sign without a ground in 300 by 300.

#include "drawing/canvas.h"

namespace lumidex {

constexpr double SceneWidth = 400, SceneHeight = 300;

void DrawLighthouse(Canvas& canvas);  // a striped tower on a cliff at dusk
void DrawMountains(Canvas& canvas);   // ranges in the haze behind a lake
void DrawStillLife(Canvas& canvas);   // fruit and a jug on a table
void DrawParrot(Canvas& canvas);      // a bird among leaves
void DrawBalloons(Canvas& canvas);    // balloons over hills in the morning
void DrawRosette(Canvas& canvas);     // a tiling of twelve-pointed stars
void DrawStarTiles(Canvas& canvas);   // the same in plain colours
void DrawSailboat(Canvas& canvas);    // a boat on waves, few flat colours
void DrawCat(Canvas& canvas);         // a cat at a window, made for black and white

void DrawCatPoster(Canvas& canvas);  // the cat, framed, on a tall sheet

void DrawStar(Canvas& canvas);          // a golden star
void DrawPointerArrow(Canvas& canvas);  // an arrow that points to the top left corner

}  // namespace lumidex
