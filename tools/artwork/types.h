#pragma once
// The pictures of the twenty-nine file types: the small 16-colour bitmaps of the status bar and the large
// pictures of the icon reference. Every type has a motif of its own.

#include <span>
#include <string_view>

#include "artwork/style.h"

namespace lumidex {

struct TypePicture {
  std::string_view key;  // "ART", as the status bar asks for it
  Tones tones;
  void (*motif)(Canvas&);  // on IconGrid
};

std::span<const TypePicture> TypePictures();

// On a grid 64 wide and 32 high, opaque: motif on the left, letters on the right.
void DrawTypeBitmap(Canvas& canvas, const TypePicture& type);
// On a grid 96 by 96: a sheet of paper with the motif above the letters.
void DrawTypeSheet(Canvas& canvas, const TypePicture& type);

}  // namespace lumidex
