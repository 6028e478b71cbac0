#pragma once
// Hatches: cells of eight by eight pixels, numbered as the "plus" records number them. 0 to 5 are also those
// of the plain records: across, down, falling, rising, cross, diagonal cross. Then come twelve shares of
// dots, lines thin and thick, and weaves.

#include <cstdint>
#include <optional>

#include "pictures/metafile/cairo_handles.h"
#include "pictures/metafile/geometry.h"

namespace lumidex::metafile {

// Unknown numbers become the nearest known one. Without `background` the picture shows between the lines.
CairoPattern HatchPattern(int hatch, std::uint32_t colour, std::optional<std::uint32_t> background,
                          Point origin);

}  // namespace lumidex::metafile
