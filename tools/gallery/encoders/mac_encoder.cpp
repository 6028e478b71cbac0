#include "gallery/encoders/mac_encoder.h"

#include "gallery/encoders/byte_writer.h"
#include "gallery/encoders/packed_rows.h"

namespace lumidex {
namespace {

// The check sum of MacBinary II: polynomial 0x1021, highest bit first, from 0.
std::uint32_t Crc16(std::span<const std::uint8_t> bytes) {
  std::uint32_t sum = 0;
  for (const std::uint8_t byte : bytes) {
    sum ^= std::uint32_t{byte} << 8;
    for (int bit = 0; bit < 8; ++bit) sum = ((sum << 1) ^ ((sum & 0x8000) != 0 ? 0x1021U : 0U)) & 0xFFFF;
  }
  return sum;
}

std::vector<std::uint8_t> MacBinaryHeader(std::size_t dataBytes) {
  constexpr std::string_view name = "Picture";
  ByteWriter header;
  header.U8(0).U8(static_cast<std::uint32_t>(name.size())).Text(name).Zeros(63 - name.size());
  header.Text("PNTGMPNT").Zeros(83 - header.Size()).U32Be(static_cast<std::uint32_t>(dataBytes));
  header.Zeros(122 - header.Size()).U8(129).U8(129);
  return header.U16Be(Crc16(header.Bytes())).Zeros(2).Take();
}

}  // namespace

std::vector<std::uint8_t> EncodeMac(const IndexedPicture& picture, MacWrapper wrapper) {
  ByteWriter data;
  data.U32Be(2).Zeros(508);  // no patterns of its own
  for (int y = 0; y < picture.size.height; ++y) {
    std::vector<std::uint8_t> row = PackRow(picture.Row(y), 1);
    for (std::uint8_t& byte : row) byte = static_cast<std::uint8_t>(~byte);  // 1 is black
    data.Append(EncodePackBits(row));
  }
  if (wrapper == MacWrapper::None) return data.Take();
  ByteWriter file;
  return file.Append(MacBinaryHeader(data.Size())).Append(data.Take()).PadTo(128).Take();
}

}  // namespace lumidex
