#pragma once
// What the program's small pictures have in common: a grid of 24 units, shapes of two tones with a darker
// outline one unit wide that lies on the pixel grid at 24 and 48 pixels, and a few stock motifs.
//
// Outlines are middle-dark, never black: they have to show on light and on dark toolbars.

#include "drawing/canvas.h"

namespace lumidex {

constexpr double IconGrid = 24;

struct Tones {
  Colour light;
  Colour base;
  Colour dark;
};

constexpr Tones Blue{Hex(0x9CCBF5), Hex(0x3F8BDB), Hex(0x1F4F8F)};
constexpr Tones Amber{Hex(0xFFE08A), Hex(0xF2AE2E), Hex(0x9A6410)};
constexpr Tones Green{Hex(0xA6E3A0), Hex(0x46AE5A), Hex(0x1F6B3A)};
constexpr Tones Red{Hex(0xFFA79B), Hex(0xE24B43), Hex(0x97211F)};
constexpr Tones Violet{Hex(0xD3B4F2), Hex(0x8E5CC9), Hex(0x533084)};
constexpr Tones Teal{Hex(0x9CE6DC), Hex(0x2BA79B), Hex(0x14655F)};
constexpr Tones Grey{Hex(0xE4EAF2), Hex(0xAEBACB), Hex(0x56647C)};
constexpr Tones Paper{Hex(0xFFFFFF), Hex(0xE3EAF3), Hex(0x56647C)};

// Fills the path from the light tone at `top` to the base tone at `bottom` and outlines it.
void Body(Canvas& canvas, const Tones& tones, double top, double bottom);
// The back of a folder with its tab, from the tab's top down; the sides are those of the outline's middle
// line.
void FolderBack(Canvas& canvas, double top, double right);
// A landscape in a frame; the box is that of the outline's middle line.
void MiniPicture(Canvas& canvas, double x, double y, double width, double height);
// A landscape without a frame, cut to the box.
void MiniLandscape(Canvas& canvas, double x, double y, double width, double height);
// An arrow from a tail to a head, as a closed shape; `half` is half the shaft's thickness.
void TraceArrow(Canvas& canvas, Point from, Point to, double half, double headLength, double headHalf);

}  // namespace lumidex
