#pragma once
// What a Windows metafile shows, how large, and playing it there.

#include "pictures/metafile/stage.h"
#include "pictures/metafile/wmf_player.h"

namespace lumidex::metafile {

struct WmfLayout {
  std::size_t recordsAt = 0;
  bool hasWindow = false;
  Box window{};  // logical units
  Box device{};  // the part of the device that the window fills; pixels of the natural size

  Point Inches() const { return {device.Width() / 96, device.Height() / 96}; }
};

// From the placing header or the window that the records set; nothing when `file`, which may end early, has
// neither.
std::optional<WmfLayout> LayOutWmf(const WmfHeader& header, Bytes file);
// For a drawing that states no extent, from the box of all it draws; nothing when it draws nothing.
std::optional<WmfLayout> MeasureWmf(const WmfHeader& header, Bytes file);
// `file` is the whole metafile. One that carries itself as an enhanced metafile too is played from that.
void PlayWmf(const WmfLayout& layout, Bytes file, Canvas& canvas, const Stage& stage);

}  // namespace lumidex::metafile
