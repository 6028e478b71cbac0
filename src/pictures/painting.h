#pragma once
// Copying a part of one picture onto another.

#include "pictures/pixels.h"

namespace lumidex {

// `length` pixels from `first` on. A negative length runs the other way: `first` is then the highest of them.
struct PixelRun {
  std::int64_t first = 0;
  std::int64_t length = 0;
  bool operator==(const PixelRun&) const = default;
};

struct PixelBox {
  PixelRun across, down;
};

// Copies the box `from` of `source` onto the box `onto` of `surface`, transparency included: stretched to
// that size, each pixel taking the one that lies under its middle, and mirrored where the runs of the two go
// opposite ways. What lies outside either picture is not painted; an empty box paints nothing. A surface that
// somebody else holds too is replaced by a copy. Neither may be premultiplied.
void Paint(Pixels& surface, const PixelBox& onto, const Pixels& source, const PixelBox& from);

}  // namespace lumidex
