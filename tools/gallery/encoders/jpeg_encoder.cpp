#include "gallery/encoders/jpeg_encoder.h"

#include <cstdio>
#include <cstdlib>

#include <jpeglib.h>

#include "pictures/pixels.h"

namespace lumidex {

std::vector<std::uint8_t> EncodeJpeg(const Pixels& pixels, int quality, JpegKind kind) {
  jpeg_compress_struct jpeg{};
  jpeg_error_mgr errors{};
  jpeg.err = jpeg_std_error(&errors);
  jpeg_create_compress(&jpeg);
  unsigned char* buffer = nullptr;
  unsigned long size = 0;
  jpeg_mem_dest(&jpeg, &buffer, &size);
  jpeg.image_width = static_cast<JDIMENSION>(pixels.Width());
  jpeg.image_height = static_cast<JDIMENSION>(pixels.Height());
  jpeg.input_components = 3;
  jpeg.in_color_space = JCS_RGB;
  jpeg_set_defaults(&jpeg);
  jpeg_set_quality(&jpeg, quality, TRUE);
  jpeg.optimize_coding = TRUE;
  if (kind == JpegKind::Progressive) jpeg_simple_progression(&jpeg);
  jpeg_start_compress(&jpeg, TRUE);
  std::vector<std::uint8_t> row;
  for (int y = 0; y < pixels.Height(); ++y) {
    row.clear();
    for (const std::uint32_t word : pixels.Row(y))
      for (const int shift : {16, 8, 0}) row.push_back(static_cast<std::uint8_t>(word >> shift));
    JSAMPROW start = row.data();
    jpeg_write_scanlines(&jpeg, &start, 1);
  }
  jpeg_finish_compress(&jpeg);
  jpeg_destroy_compress(&jpeg);
  std::vector<std::uint8_t> bytes(buffer, buffer + size);
  std::free(buffer);
  return bytes;
}

}  // namespace lumidex
