#pragma once
// Palettes that change from row to row: the Amiga could load its colour registers anew while the picture was
// being drawn, and several programs kept what they loaded in a chunk of their own.

#include <cstdint>
#include <vector>

#include "pictures/palettes.h"
#include "pictures/picture_data.h"

namespace lumidex {

enum class IffLineColoursKind {
  None,
  Sliced,   // SHAM: a version word, then 16 words 0RGB a row, or a pair of rows of an interlaced picture
  Table,    // CTBL: 16 words 0RGB a row
  Changes,  // PCHG: what changes on which row, perhaps Huffman coded
};

// Applies the changes to the colours as rows are painted from the top.
class IffLineColours {
 public:
  IffLineColours() = default;
  // `mayPairRows`: nothing says that the picture is not interlaced. What is cut or makes no sense ends the
  // changes.
  IffLineColours(IffLineColoursKind kind, Bytes chunk, int height, bool mayPairRows);

  // Makes `colours`, those of the rows above, those of row `y`; true when any changed. Rows are asked for in
  // their order.
  bool Advance(int y, Palette& colours);

 private:
  struct Change {
    int row = 0;
    std::uint8_t entry = 0;
    std::uint32_t colour = 0;
  };

  void ReadTable(Bytes words, int height, bool mayPairRows);
  void ReadChanges(Bytes chunk);

  std::vector<Change> changes_;  // by row
  std::size_t next_ = 0;
};

}  // namespace lumidex
