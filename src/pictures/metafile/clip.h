#pragma once
// The part of the picture that drawing may touch: a box and, where that is not enough, a coverage mask.

#include <memory>

#include "pictures/metafile/cairo_handles.h"
#include "pictures/metafile/geometry.h"

namespace lumidex::metafile {

// How a region or path joins the clip, numbered as in the records that name it; the last, which takes the
// clip out of what joins it, is known to the later records only.
enum class ClipMode { And = 1, Or = 2, Xor = 3, Difference = 4, Copy = 5, Complement = 6 };

struct Clip {
  Box box;                                // whole pixels of the picture
  std::shared_ptr<cairo_surface_t> mask;  // as large as the picture, one byte a pixel; often absent
};

}  // namespace lumidex::metafile
