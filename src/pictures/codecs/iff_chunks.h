#pragma once
// Finds the first picture in an IFF file and gathers from its chunks what decoding needs.

#include <cstdint>
#include <optional>

#include "pictures/palettes.h"
#include "pictures/picture_data.h"
#include "pictures/pixels.h"

namespace lumidex {

enum class IffKind { Interleaved, Contiguous, Chunky };  // ILBM, ACBM, PBM

struct IffPicture {
  IffKind kind = IffKind::Interleaved;
  // From the bitmap header.
  Size size;
  int planes = 0;
  int masking = 0;      // 1 a mask plane follows the others, 2 one colour is transparent
  int compression = 0;  // 0 none, 1 PackBits, 2 columns in chunks of their own
  int transparentIndex = 0;
  // The display mode of the Amiga, where the file tells it.
  std::optional<std::uint32_t> displayMode;
  int colourCount = 0;
  Palette colours{};
  // Where the rows lie.
  std::uint64_t bodyOffset = 0;
};

// True when the file begins as one of the IFF files that may hold a picture.
bool IsIff(Bytes head);

// Reads no more than the chunks before the rows. Raises InvalidPicture when there is no picture of a known
// kind, no bitmap header or no rows.
IffPicture FindIffPicture(const PictureData& data);

}  // namespace lumidex
