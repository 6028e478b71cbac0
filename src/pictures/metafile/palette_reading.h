#pragma once
// How records of both kinds store palettes and change them.

#include "pictures/byte_reader.h"
#include "pictures/metafile/device_state.h"
#include "pictures/metafile/work_budget.h"

namespace lumidex::metafile {

// Gives the palette's entries from `first` on the colours at the reader, as far as there are any.
void ReadPaletteEntries(ByteReader& reader, std::size_t first, std::size_t count,
                        std::vector<std::uint32_t>& palette);
// A whole palette, behind its version.
PaletteColours ReadPalette(ByteReader& reader);
// Cuts the palette, or adds black to it; at most 65536 colours.
void ResizePalette(std::vector<std::uint32_t>& palette, std::size_t count, WorkBudget& budget);

}  // namespace lumidex::metafile
