#include "pictures/support/byte_writer.h"

namespace lumidex {

PictureData DataOf(std::vector<std::uint8_t> bytes, std::string extension) {
  return {std::make_shared<MemorySource>(std::move(bytes)), std::move(extension)};
}

std::unique_ptr<Decoder> OpenBytes(const std::vector<std::uint8_t>& bytes, const std::string& extension,
                                   const OpenOptions& options) {
  return OpenDecoder(DataOf(bytes, extension), options);
}

Pixels DecodeBytes(const std::vector<std::uint8_t>& bytes, const std::string& extension,
                   const OpenOptions& options) {
  return OpenBytes(bytes, extension, options)->Decode({});
}

std::vector<std::uint32_t> WordsOf(const Pixels& pixels) {
  return {pixels.Data(), pixels.Data() + pixels.ByteCount() / 4};
}

std::vector<std::uint32_t> RowOf(const Pixels& pixels, int y) {
  const auto row = pixels.Row(y);
  return {row.begin(), row.end()};
}

}  // namespace lumidex
