#include "pictures/metafile/palette_reading.h"

#include <algorithm>

namespace lumidex::metafile {

void ReadPaletteEntries(ByteReader& reader, std::size_t first, std::size_t count,
                        std::vector<std::uint32_t>& palette) {
  for (std::size_t i = first; count > 0 && i < palette.size() && reader.Remaining() >= 4; ++i, --count) {
    const std::uint32_t red = reader.U8(), green = reader.U8(), blue = reader.U8();
    reader.Skip(1);
    palette[i] = 0xFF000000U | red << 16 | green << 8 | blue;
  }
}

PaletteColours ReadPalette(ByteReader& reader) {
  const std::size_t count = reader.U16Le();
  auto palette =
      std::make_shared<std::vector<std::uint32_t>>(std::min<std::size_t>(count, reader.Remaining() / 4));
  ReadPaletteEntries(reader, 0, count, *palette);
  return palette;
}

void ResizePalette(std::vector<std::uint32_t>& palette, std::size_t count, WorkBudget& budget) {
  if (count > 65536) return;
  const double more = count > palette.capacity() ? static_cast<double>(count) * 4 : 0;
  if (budget.Spend(static_cast<double>(count)) && budget.Keep(more)) palette.resize(count, 0xFF000000U);
}

}  // namespace lumidex::metafile
