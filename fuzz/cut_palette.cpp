// The palette file beside a Dr. Halo picture.

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <vector>

#include "pictures/codec.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // Two pixels, of the first and the last index.
  const std::vector<std::uint8_t> picture{2, 0, 1, 0, 0, 0, 3, 0, 2, 0, 255};
  lumidex::PictureData file(std::make_shared<lumidex::MemorySource>(picture), ".cut");
  file.paletteFile.assign(data, data + size);
  const lumidex::Pixels pixels = lumidex::OpenDecoder(file)->Decode({});
  // Whatever the palette is, the picture is opaque.
  for (const std::uint32_t word : pixels.Row(0)) {
    if (word >> 24 != 255) std::abort();
  }
  return 0;
}
