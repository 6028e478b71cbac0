#pragma once
// Writes JPEG files, through libjpeg-turbo.

#include "pictures/byte_sink.h"
#include "pictures/jpeg_metadata.h"

namespace lumidex {

class Pixels;

// They mean what they mean to the library; values beyond its ranges are brought to the nearest end.
struct JpegWriterOptions {
  int quality = 75;       // 1 to 100: the scale of its standard quantization tables, kept to baseline
  int smoothing = 0;      // 0 to 100: how strongly the picture is smoothed before it is coded
  bool optimize = false;  // code tables made for the picture: smaller, and a pass more
};

// Three components, the chroma at half size, rows top-down; transparency is blended over white. Raises
// InvalidPicture for no pixels, and what the sink raises.
void WriteJpeg(const Pixels& pixels, const JpegWriterOptions& options, ByteSink& sink,
               const JpegMetadata& metadata = {});

}  // namespace lumidex
