#include "gallery/encoders/pic_encoder.h"

#include <algorithm>
#include <array>

#include "gallery/encoders/byte_writer.h"
#include "gallery/encoders/packed_rows.h"

namespace lumidex {
namespace {

// The value that occurs least, to stand before runs.
std::uint8_t RarestByte(std::span<const std::uint8_t> bytes) {
  std::array<std::size_t, 256> counts{};
  for (const std::uint8_t byte : bytes) ++counts[byte];
  return static_cast<std::uint8_t>(std::ranges::min_element(counts) - counts.begin());
}

void AppendBlock(ByteWriter& file, std::span<const std::uint8_t> bytes) {
  constexpr std::size_t worthARun = 4, most = 0xFFFF, header = 5;
  const std::uint8_t marker = RarestByte(bytes);
  ByteWriter packed;
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t run = RunLength(bytes, at, most);
    const std::uint32_t count = static_cast<std::uint32_t>(run);
    if (run > 255) {
      packed.U8(marker).U8(0).U16Le(count).U8(bytes[at]);
    } else if (run >= worthARun || bytes[at] == marker) {
      packed.U8(marker).U8(count).U8(bytes[at]);
    } else {
      packed.Append(bytes.subspan(at, run));
    }
    at += run;
  }
  file.U16Le(static_cast<std::uint32_t>(packed.Size() + header))
      .U16Le(static_cast<std::uint32_t>(bytes.size()));
  file.U8(marker).Append(packed.Take());
}

void AppendBlocks(ByteWriter& file, std::span<const std::uint8_t> bytes) {
  constexpr std::size_t blockBytes = 8192;
  file.U16Le(static_cast<std::uint32_t>((bytes.size() + blockBytes - 1) / blockBytes));
  for (std::size_t at = 0; at < bytes.size(); at += blockBytes)
    AppendBlock(file, bytes.subspan(at, std::min(blockBytes, bytes.size() - at)));
}

}  // namespace

std::vector<std::uint8_t> EncodePic(const IndexedPicture& picture) {
  const std::size_t colours = picture.palette.size();
  const int planes = colours <= 2 || colours > 16 ? 1 : 4;
  const int bits = colours > 16 ? 8 : 1;
  const std::uint32_t paletteKind = colours <= 2 ? 0 : colours <= 16 ? 5 : 4;
  const std::uint32_t entries = colours <= 2 ? 0 : colours <= 16 ? 16 : 256;

  ByteWriter file;
  file.U16Le(0x1234).U16Le(static_cast<std::uint32_t>(picture.size.width));
  file.U16Le(static_cast<std::uint32_t>(picture.size.height)).U16Le(0).U16Le(0);
  file.U8(static_cast<std::uint32_t>((planes - 1) << 4 | bits)).U8(0xFF);
  file.U8(colours <= 2 ? 'O' : colours <= 16 ? 'M' : 'L').U16Le(paletteKind).U16Le(entries * 3);
  for (std::size_t i = 0; i < entries; ++i) {
    const std::uint32_t colour = i < colours ? picture.palette[i] : 0;
    file.U8(colour >> 18 & 63).U8(colour >> 10 & 63).U8(colour >> 2 & 63);
  }
  // One whole plane after the other, the lowest row first.
  ByteWriter data;
  for (int plane = 0; plane < planes; ++plane) {
    for (int y = picture.size.height - 1; y >= 0; --y)
      data.Append(planes == 1 ? PackRow(picture.Row(y), bits) : PackPlane(picture.Row(y), plane));
  }
  AppendBlocks(file, data.Take());
  return file.Take();
}

}  // namespace lumidex
