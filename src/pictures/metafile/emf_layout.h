#pragma once
// Which part of its device an enhanced metafile shows, how large, and playing it there.

#include "pictures/metafile/emf_player.h"
#include "pictures/metafile/stage.h"

namespace lumidex::metafile {

struct EmfLayout {
  std::size_t recordsAt = 0;
  Point pixelsPerMillimetre{96 / 25.4, 96 / 25.4};
  Point inches;             // the size of what is shown
  Box shown;                // device units
  bool upsideDown = false;  // y of the device counts upwards, against the rule
};

EmfLayout LayOutEmf(const EmfHeader& header);
// `file` is the whole metafile.
void PlayEmf(const EmfLayout& layout, Bytes file, Canvas& canvas, const Stage& stage);

}  // namespace lumidex::metafile
