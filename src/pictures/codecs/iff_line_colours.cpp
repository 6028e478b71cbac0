// PCHG as the library of its author describes it; SHAM and CTBL were never described by their makers.
#include "pictures/codecs/iff_line_colours.h"

#include <algorithm>

#include "pictures/byte_reader.h"

namespace lumidex {
namespace {

constexpr int tableEntries = 16;

// A word 0RGB, four bits a component.
std::uint32_t Colour444(unsigned word) {
  return Rgb((word >> 8 & 15) * 17, (word >> 4 & 15) * 17, (word & 15) * 17);
}

// The tree is a list of words walked from its last one: a bit 0 goes one word back, a bit 1 by the (negative)
// number of bytes that stands there. A word that is not negative is a value when reached by a bit 1; by a bit
// 0 only when marked with 100 hexadecimal.
std::vector<std::uint8_t> UnpackHuffman(Bytes tree, Bytes coded, std::size_t size) {
  std::vector<std::uint8_t> unpacked;
  if (tree.size() < 2) return unpacked;
  const std::int64_t root = static_cast<std::int64_t>(tree.size() / 2) - 1;
  const auto wordAt = [tree](std::int64_t index) {
    const std::size_t at = static_cast<std::size_t>(index) * 2;
    return static_cast<std::int16_t>(tree[at] << 8 | tree[at + 1]);
  };
  // No value takes less than one bit, and no picture has more changes than this.
  constexpr std::size_t most = std::size_t{4} << 20;
  size = std::min({size, coded.size() * 8, most});
  std::int64_t place = root;
  for (std::size_t bit = 0; unpacked.size() < size && bit < coded.size() * 8; ++bit) {
    const bool one = (coded[bit / 8] >> (7 - bit % 8) & 1) != 0;
    if (!one && --place < 0) break;
    const int word = wordAt(place);
    const bool isValue = one ? word >= 0 : word > 0 && (word & 0x100) != 0;
    if (isValue) {
      unpacked.push_back(static_cast<std::uint8_t>(word));
      place = root;
    } else if (one) {
      place += word / 2;
      if (place < 0) break;
    }
  }
  return unpacked;
}

}  // namespace

IffLineColours::IffLineColours(IffLineColoursKind kind, Bytes chunk, int height, bool mayPairRows) {
  switch (kind) {
    case IffLineColoursKind::Sliced:
      ReadTable(chunk.subspan(std::min<std::size_t>(2, chunk.size())), height, mayPairRows);
      break;
    case IffLineColoursKind::Table:
      ReadTable(chunk, height, mayPairRows);
      break;
    case IffLineColoursKind::Changes:
      ReadChanges(chunk);
      break;
    case IffLineColoursKind::None:
      break;
  }
}

void IffLineColours::ReadTable(Bytes words, int height, bool mayPairRows) {
  const int palettes = static_cast<int>(std::min<std::size_t>(words.size() / (2 * tableEntries), 65536));
  const int step = mayPairRows && palettes * 2 <= height + 1 ? 2 : 1;
  ByteReader reader(words);
  changes_.reserve(static_cast<std::size_t>(palettes) * tableEntries);
  for (int palette = 0; palette < palettes; ++palette) {
    for (int entry = 0; entry < tableEntries; ++entry)
      changes_.push_back({palette * step, static_cast<std::uint8_t>(entry), Colour444(reader.U16Be())});
  }
}

void IffLineColours::ReadChanges(Bytes chunk) {
  constexpr unsigned small = 1, big = 2;
  ByteReader reader(chunk);
  const unsigned compression = reader.U16Be(), flags = reader.U16Be();
  const int startRow = reader.S16Be();
  const int rows = reader.U16Be();
  reader.Skip(12);  // what there is and at most, which the data tells too
  if (compression > 1 || (flags & (small | big)) == 0) return;
  std::vector<std::uint8_t> unpacked;
  if (compression == 1) {
    const std::size_t treeSize = reader.U32Be(), size = reader.U32Be();
    const Bytes tree = reader.Take(treeSize);
    unpacked = UnpackHuffman(tree, reader.Take(reader.Remaining()), size);
    reader = ByteReader(unpacked);
  }
  // A bit for each row that has changes, in whole double words.
  const Bytes marks = reader.Take((static_cast<std::size_t>(rows) + 31) / 32 * 4);
  for (int row = 0; row < rows && static_cast<std::size_t>(row) / 8 < marks.size(); ++row) {
    if ((marks[static_cast<std::size_t>(row) / 8] >> (7 - row % 8) & 1) == 0) continue;
    const int target = std::max(startRow + row, 0);
    if ((flags & small) != 0) {
      // Counts for the entries 0 to 15 and 16 to 31, then words of an entry and its colour.
      const int low = reader.U8(), high = reader.U8();
      for (int i = 0; i < low + high; ++i) {
        const unsigned word = reader.U16Be();
        if (reader.WasCut()) return;
        const unsigned entry = (word >> 12) + (i < low ? 0U : 16U);
        changes_.push_back({target, static_cast<std::uint8_t>(entry), Colour444(word)});
      }
    } else {
      for (int i = reader.U16Be(); i > 0; --i) {
        const unsigned entry = reader.U16Be();
        reader.Skip(1);  // alpha
        const unsigned red = reader.U8(), blue = reader.U8(), green = reader.U8();
        if (reader.WasCut()) return;
        if (entry < 256)
          changes_.push_back({target, static_cast<std::uint8_t>(entry), Rgb(red, green, blue)});
      }
    }
  }
}

bool IffLineColours::Advance(int y, Palette& colours) {
  bool any = false;
  for (; next_ < changes_.size() && changes_[next_].row <= y; ++next_) {
    colours[changes_[next_].entry] = changes_[next_].colour;
    any = true;
  }
  return any;
}

}  // namespace lumidex
