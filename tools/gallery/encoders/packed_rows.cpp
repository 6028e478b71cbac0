#include "gallery/encoders/packed_rows.h"

#include <algorithm>

#include "gallery/encoders/byte_writer.h"

namespace lumidex {

std::vector<std::uint8_t> PackRow(std::span<const std::uint8_t> row, int bits) {
  const std::size_t perByte = 8 / static_cast<std::size_t>(bits);
  std::vector<std::uint8_t> packed((row.size() + perByte - 1) / perByte);
  for (std::size_t x = 0; x < row.size(); ++x) {
    const std::size_t shift = (perByte - 1 - x % perByte) * static_cast<std::size_t>(bits);
    packed[x / perByte] = static_cast<std::uint8_t>(packed[x / perByte] | row[x] << shift);
  }
  return packed;
}

std::vector<std::uint8_t> PackPlane(std::span<const std::uint8_t> row, int plane) {
  std::vector<std::uint8_t> bits(row.begin(), row.end());
  for (std::uint8_t& bit : bits) bit = static_cast<std::uint8_t>(bit >> plane & 1);
  return PackRow(bits, 1);
}

std::size_t RunLength(std::span<const std::uint8_t> bytes, std::size_t at, std::size_t most) {
  std::size_t length = 1;
  while (length < most && at + length < bytes.size() && bytes[at + length] == bytes[at]) ++length;
  return length;
}

std::size_t CopyLength(std::span<const std::uint8_t> bytes, std::size_t at, std::size_t most,
                       std::size_t worthARun) {
  std::size_t length = 1;
  while (length < most && at + length < bytes.size() && RunLength(bytes, at + length, worthARun) < worthARun)
    ++length;
  return length;
}

std::vector<std::uint8_t> EncodePackBits(std::span<const std::uint8_t> bytes) {
  constexpr std::size_t most = 128, worthARun = 3;
  ByteWriter packed;
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t run = RunLength(bytes, at, most);
    if (run >= worthARun) {
      packed.U8(static_cast<std::uint32_t>(257 - run)).U8(bytes[at]);
      at += run;
      continue;
    }
    const std::size_t count = CopyLength(bytes, at, most, worthARun);
    packed.U8(static_cast<std::uint32_t>(count - 1)).Append(bytes.subspan(at, count));
    at += count;
  }
  return packed.Take();
}

}  // namespace lumidex
