#pragma once
// A picture with filters laid over it, which work on no more pixels than are asked for: a small preview of a
// large picture is filtered small.

#include <functional>
#include <vector>

#include "pictures/picture.h"

namespace lumidex {

// Changes pixels one by one, whatever stands beside them; see pictures/filters.h.
using PixelFilter = std::function<void(Pixels& pixels)>;

// The filters act one after the other, on pixels of their own. The depth stays that of `source`, which must
// not be empty; a drawing becomes a bitmap.
Picture Filtered(const Picture& source, std::vector<PixelFilter> filters);

}  // namespace lumidex
