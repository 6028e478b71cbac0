#pragma once
// EXIF data, which is laid out as a TIFF file's first directory: reading its orientation mark, and making it
// true of other pixels.

#include <optional>
#include <span>

#include "pictures/orientation.h"
#include "pictures/picture_data.h"

namespace lumidex {

struct ExifMark {
  Orientation orientation = Orientation::Upright;
  bool beyond = false;  // the directory lies past the end of the bytes given
};

// `tiff` begins with the byte order mark (behind "Exif" and two zero bytes in a JPEG file).
ExifMark ReadExifOrientation(Bytes tiff);

struct ExifChanges {
  std::optional<Size> size = {};  // of pixels that stand upright
  bool dropsThumbnail = false;    // the small picture is no longer told of
  bool coloursAreSrgb = false;
};

// Changes the numbers that are there, in their places; adds none. Damaged data is changed as far as it can be
// read.
void ChangeExif(std::span<std::uint8_t> tiff, const ExifChanges& changes);

}  // namespace lumidex
