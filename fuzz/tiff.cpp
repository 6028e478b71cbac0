#include <cstdio>
#include <cstdlib>
#include <memory>

#include "decoder_target.h"
#include "pictures/codecs/tiff_facts.h"

namespace {

// What is read of a header without libtiff is what that one says of it.
bool AgreesWithLibrary(const std::uint8_t* data, std::size_t size) {
  const lumidex::PictureData picture(
      std::make_shared<lumidex::MemorySource>(std::vector<std::uint8_t>(data, data + size)), ".tif");
  const auto facts = lumidex::ReadTiffFacts(picture);
  if (!facts) return true;
  const lumidex::TiffFile file(picture.Source(), std::int64_t{128} << 20);
  return file.Handle() != nullptr && lumidex::LibraryTiffFacts(file) == *facts;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (!AgreesWithLibrary(data, size)) {
    std::fputs("the header is read in two ways\n", stderr);
    std::abort();
  }
  return lumidex::FuzzDecoder("TIFF", data, size);
}
