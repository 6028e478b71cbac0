#include "pictures/dib_huffman.h"

#include <algorithm>
#include <array>

#include "base/run_time_error.h"
#include "pictures/codecs/tiff.h"

namespace lumidex {
namespace {

void PutU16(std::vector<std::uint8_t>& file, std::uint32_t value) {
  file.push_back(static_cast<std::uint8_t>(value));
  file.push_back(static_cast<std::uint8_t>(value >> 8));
}

void PutU32(std::vector<std::uint8_t>& file, std::uint32_t value) {
  PutU16(file, value);
  PutU16(file, value >> 16);
}

// The library that knows the code reads it from TIFF files only: one strip of it, and a directory.
std::vector<std::uint8_t> WrappedAsTiff(Size size, Bytes bytes) {
  constexpr std::uint32_t stripAt = 8, longType = 4;
  constexpr std::uint32_t faxCode = 3, whiteIsZero = 0;
  const auto width = static_cast<std::uint32_t>(size.width), height = static_cast<std::uint32_t>(size.height);
  const auto count = static_cast<std::uint32_t>(bytes.size());
  const std::array<std::array<std::uint32_t, 2>, 9> fields = {{{256, width},
                                                               {257, height},
                                                               {258, 1},
                                                               {259, faxCode},
                                                               {262, whiteIsZero},
                                                               {273, stripAt},
                                                               {277, 1},
                                                               {278, height},
                                                               {279, count}}};
  std::vector<std::uint8_t> file = {'I', 'I', 42, 0};
  PutU32(file, stripAt + count + count % 2);
  file.insert(file.end(), bytes.begin(), bytes.end());
  if (count % 2 != 0) file.push_back(0);
  PutU16(file, static_cast<std::uint32_t>(fields.size()));
  for (const auto& [tag, value] : fields) {
    PutU16(file, tag);
    PutU16(file, longType);
    PutU32(file, 1);
    PutU32(file, value);
  }
  PutU32(file, 0);
  return file;
}

}  // namespace

void DecodeDibHuffman(const DibHeader& header, Bytes bytes, Pixels& pixels) {
  try {
    const PictureData data(std::make_shared<MemorySource>(WrappedAsTiff(header.size, bytes)), {});
    const Pixels decoded = OpenTiff(data, {})->Decode({});
    const int height = header.size.height;
    for (int y = 0; y < height; ++y) {
      const auto from = decoded.Row(header.topDown ? y : height - 1 - y);
      // White runs are zeros.
      std::ranges::transform(from, pixels.Row(y).begin(),
                             [&](std::uint32_t word) { return header.colours[word == blankPixel ? 0 : 1]; });
    }
  } catch (const RunTimeError& error) {
    if (error.Number() == ErrorNumber::OutOfMemory) throw;
  }
}

}  // namespace lumidex
