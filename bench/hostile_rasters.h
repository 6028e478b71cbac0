#pragma once
// Rasters of at most one mebibyte that claim the largest picture they may: one colour all over, cut where the
// mebibyte ends.

#include "hostile_drawings.h"

namespace lumidex {

const std::vector<HostileFile>& HostileRasters();

}  // namespace lumidex
