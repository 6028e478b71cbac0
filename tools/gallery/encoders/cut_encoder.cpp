#include "gallery/encoders/cut_encoder.h"

#include "gallery/encoders/byte_writer.h"
#include "gallery/encoders/packed_rows.h"

namespace lumidex {
namespace {

std::vector<std::uint8_t> PackCutRow(std::span<const std::uint8_t> row) {
  constexpr std::size_t most = 127, worthARun = 3;
  ByteWriter packed;
  for (std::size_t at = 0; at < row.size();) {
    const std::size_t run = RunLength(row, at, most);
    if (run >= worthARun) {
      packed.U8(static_cast<std::uint32_t>(128 + run)).U8(row[at]);
      at += run;
      continue;
    }
    const std::size_t count = CopyLength(row, at, most, worthARun);
    packed.U8(static_cast<std::uint32_t>(count)).Append(row.subspan(at, count));
    at += count;
  }
  return packed.U8(0).Take();
}

}  // namespace

std::vector<std::uint8_t> EncodeCut(const IndexedPicture& picture) {
  ByteWriter file;
  file.U16Le(static_cast<std::uint32_t>(picture.size.width));
  file.U16Le(static_cast<std::uint32_t>(picture.size.height)).U16Le(0);
  for (int y = 0; y < picture.size.height; ++y) {
    const std::vector<std::uint8_t> packed = PackCutRow(picture.Row(y));
    file.U16Le(static_cast<std::uint32_t>(packed.size())).Append(packed);
  }
  return file.Take();
}

std::vector<std::uint8_t> EncodeCutPalette(const Colours& palette) {
  constexpr std::size_t nameBytes = 20, entryBytes = 6, blockBytes = 512;
  ByteWriter entries;
  const std::size_t headerBytes = 40;
  for (const std::uint32_t colour : palette) {
    const std::size_t leftInBlock = blockBytes - (headerBytes + entries.Size()) % blockBytes;
    if (leftInBlock < entryBytes) entries.Zeros(leftInBlock);
    entries.U16Le(colour >> 16 & 255).U16Le(colour >> 8 & 255).U16Le(colour & 255);
  }
  ByteWriter file;
  file.U16Be(0x4148).U16Le(0xE3);  // "AH" and the version
  file.U16Le(static_cast<std::uint32_t>(entries.Size())).U8(10).U8(0).U16Le(0).U16Le(0);
  file.U16Le(static_cast<std::uint32_t>(palette.size() - 1)).U16Le(255).U16Le(255).U16Le(255);
  return file.Zeros(nameBytes).Append(entries.Take()).Take();
}

}  // namespace lumidex
