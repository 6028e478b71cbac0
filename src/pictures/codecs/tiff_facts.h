#pragma once
// What the first directory of a plain TIFF file says of its picture, read without libtiff: that one sets up
// the tables of all tags for each file it opens, which takes far longer than the reading.
//
// The format is that of "TIFF, Revision 6.0" (Aldus, 1992), also with the wider numbers of BigTIFF.

#include <optional>

#include "pictures/codecs/tiff_file.h"

namespace lumidex {

struct TiffFacts {
  TiffLayout layout;
  bool hasProfile = false;
  bool operator==(const TiffFacts&) const = default;
};

// As libtiff tells them of a file whose handle is there.
TiffFacts LibraryTiffFacts(const TiffFile& file);

// Nothing, where the directory is in any way unusual, damaged or beyond what this knows: libtiff decides then
// what it means, or whether the file is one. An answer is what libtiff gives for the file, whose strips or
// tiles are then small enough for TiffBands.
std::optional<TiffFacts> ReadTiffFacts(const PictureData& data);

}  // namespace lumidex
