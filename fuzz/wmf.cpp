#include "decoder_target.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return lumidex::FuzzDecoder("WMF", data, size);
}
