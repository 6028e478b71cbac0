#pragma once
// The brushes of the later "plus" records: colours, hatches, pictures, and shadings along a line or from an
// outline to its centre.

#include "pictures/byte_reader.h"
#include "pictures/metafile/device_state.h"
#include "pictures/metafile/work_budget.h"

namespace lumidex::metafile::plus {

// A solid colour, 0xAARRGGBB.
Brush SolidBrush(std::uint32_t argb);
// The reader stands before the brush's version. No ink when it makes no sense or costs more than is left.
Brush ReadBrush(ByteReader& reader, WorkBudget& budget);

}  // namespace lumidex::metafile::plus
