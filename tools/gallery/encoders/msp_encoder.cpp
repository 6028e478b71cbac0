#include "gallery/encoders/msp_encoder.h"

#include <algorithm>
#include <array>

#include "gallery/encoders/byte_writer.h"
#include "gallery/encoders/packed_rows.h"

namespace lumidex {
namespace {

// A white row has no bytes at all.
std::vector<std::uint8_t> PackMspRow(std::span<const std::uint8_t> row) {
  constexpr std::size_t most = 255, worthARun = 4;
  if (std::ranges::all_of(row, [](std::uint8_t byte) { return byte == 0xFF; })) return {};
  ByteWriter packed;
  for (std::size_t at = 0; at < row.size();) {
    const std::size_t run = RunLength(row, at, most);
    if (run >= worthARun) {
      packed.U8(0).U8(static_cast<std::uint32_t>(run)).U8(row[at]);
      at += run;
      continue;
    }
    const std::size_t count = CopyLength(row, at, most, worthARun);
    packed.U8(static_cast<std::uint32_t>(count)).Append(row.subspan(at, count));
    at += count;
  }
  return packed.Take();
}

// The bits behind the last pixel are white too.
std::vector<std::uint8_t> WhiteFilledRow(std::span<const std::uint8_t> row) {
  std::vector<std::uint8_t> filled(row.begin(), row.end());
  filled.resize((row.size() + 7) / 8 * 8, 1);
  return PackRow(filled, 1);
}

}  // namespace

std::vector<std::uint8_t> EncodeMsp(const IndexedPicture& picture, MspVersion version) {
  const std::uint32_t width = static_cast<std::uint32_t>(picture.size.width);
  const std::uint32_t height = static_cast<std::uint32_t>(picture.size.height);
  const bool packed = version == MspVersion::Two;
  const std::array<std::uint32_t, 12> words{
      packed ? 0x694CU : 0x6144U, packed ? 0x536EU : 0x4D6EU, width, height, 1, 1, 1, 1, width, height, 0, 0};
  ByteWriter file;
  std::uint32_t checksum = 0;
  for (const std::uint32_t word : words) {
    file.U16Le(word);
    checksum ^= word;
  }
  file.U16Le(checksum).Zeros(6);
  ByteWriter lengths, rows;
  for (int y = 0; y < picture.size.height; ++y) {
    const std::vector<std::uint8_t> row = WhiteFilledRow(picture.Row(y));
    const std::vector<std::uint8_t> stored = packed ? PackMspRow(row) : row;
    if (packed) lengths.U16Le(static_cast<std::uint32_t>(stored.size()));
    rows.Append(stored);
  }
  return file.Append(lengths.Take()).Append(rows.Take()).Take();
}

}  // namespace lumidex
