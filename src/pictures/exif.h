#pragma once
// The orientation mark in a block of EXIF data, which is laid out as a TIFF file's first directory.

#include "pictures/orientation.h"
#include "pictures/picture_data.h"

namespace lumidex {

struct ExifMark {
  Orientation orientation = Orientation::Upright;
  bool beyond = false;  // the directory lies past the end of the bytes given
};

// `tiff` begins with the byte order mark (behind "Exif" and two zero bytes in a JPEG file).
ExifMark ReadExifOrientation(Bytes tiff);

}  // namespace lumidex
