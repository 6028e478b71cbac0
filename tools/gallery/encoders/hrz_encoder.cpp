#include "gallery/encoders/hrz_encoder.h"

#include "gallery/encoders/byte_writer.h"
#include "pictures/pixels.h"

namespace lumidex {

std::vector<std::uint8_t> EncodeHrz(const Pixels& pixels) {
  ByteWriter file;
  for (int y = 0; y < pixels.Height(); ++y) {
    for (const std::uint32_t word : pixels.Row(y))
      file.U8(word >> 18 & 63).U8(word >> 10 & 63).U8(word >> 2 & 63);
  }
  return file.Take();
}

}  // namespace lumidex
