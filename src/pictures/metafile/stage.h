#pragma once
// Where a whole metafile is played: all of the sheet, or a part when it stands inside another one.

#include <optional>

#include "pictures/metafile/clip.h"
#include "pictures/metafile/geometry.h"

namespace lumidex::metafile {

// Drawings inside drawings deeper than this are left out.
inline constexpr int deepestNesting = 4;

struct Stage {
  Matrix unitToSheet{};          // what the metafile shows fills the unit square
  std::optional<Clip> within{};  // nothing is drawn outside; absent for all of the sheet
  int depth = 0;                 // how many metafiles stand around this one
};

}  // namespace lumidex::metafile
