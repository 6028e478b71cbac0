#pragma once
// Finds the first picture in an IFF file and gathers from its chunks what decoding needs.

#include <cstdint>
#include <optional>
#include <vector>

#include "pictures/codec.h"
#include "pictures/codecs/iff_line_colours.h"
#include "pictures/codecs/iff_true_colour.h"
#include "pictures/palettes.h"
#include "pictures/picture_data.h"
#include "pictures/pixels.h"

namespace lumidex {

enum class IffKind {
  Interleaved,  // ILBM
  Contiguous,   // ACBM
  Chunky,       // PBM
  ColourRuns,   // RGB8 and RGBN
  Deep,         // DEEP
};

struct IffPicture {
  IffKind kind = IffKind::Interleaved;
  // From the bitmap header.
  Size size;
  int planes = 0;
  int masking = 0;      // 1 a mask plane follows the others, 2 one colour is transparent
  int compression = 0;  // 0 none, 1 PackBits, 2 columns in chunks of their own, 4 runs of colours, 5 steps
  int transparentIndex = 0;
  // The display mode of the Amiga, where the file tells it.
  std::optional<std::uint32_t> displayMode;
  int colourCount = 0;
  Palette colours{};
  // The colours that change from row to row.
  IffLineColoursKind lineColours = IffLineColoursKind::None;
  std::uint64_t lineColoursOffset = 0;
  std::uint64_t lineColoursLength = 0;
  std::vector<DeepElement> elements;  // of a pixel, where the kind is Deep
  DeepSteps steps{};                  // where the compression is 5
  // Where the rows lie.
  std::uint64_t bodyOffset = 0;
};

// Sure when the file begins as one of the IFF files that may hold a picture, Maybe for other contents, which
// are taken to be refused by name.
Match MatchIffHead(Bytes head);

// Reads no more than the chunks before the rows. Raises InvalidPicture when there is no picture of a known
// kind, no bitmap header or no rows.
IffPicture FindIffPicture(const PictureData& data);

}  // namespace lumidex
