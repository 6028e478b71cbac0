#pragma once
// More drawings like those of hostile_drawings.h: shadings, tiles, drawings inside drawings, operations with
// the picture.

#include "hostile_drawings.h"

namespace lumidex {

const std::vector<HostileFile>& HostilePlusDrawings();

}  // namespace lumidex
