#pragma once
// What a JPEG file says about its picture beside the pixels: EXIF, XMP and IPTC data, comments, the colour
// profile, the density. It is read from one file, made true of other pixels, and written into another.

#include <cstdint>
#include <vector>

#include "pictures/size.h"

namespace lumidex {

class ByteSource;

struct JpegMetadata {
  // A marker segment that goes from file to file as it stands.
  struct Segment {
    int marker = 0;                   // 0xE1, 0xED or 0xFE
    std::vector<std::uint8_t> bytes;  // behind the length
  };

  std::vector<Segment> segments;  // in the order of the file
  std::vector<std::uint8_t> profile;
  // As the JFIF header has them; unit 0 tells the proportions of a pixel only.
  int densityUnit = 0, densityX = 1, densityY = 1;

  bool HasExif() const;
};

// What stands before the first scan of the file that begins at `start`; of damaged segments what can be read.
// Takes up no more than 32 MiB.
JpegMetadata ReadJpegMetadata(const ByteSource& source, std::uint64_t start);

enum class PixelsAre {
  AsInTheFile,
  Changed,  // the small picture that EXIF data may hold shows something else and goes
};

// Makes the data true of upright pixels of that size.
void DescribeUpright(JpegMetadata& metadata, Size size, PixelsAre pixels);
// Makes the data true of pixels that were converted to sRGB: gives them its profile.
void DescribeSrgb(JpegMetadata& metadata);

}  // namespace lumidex
