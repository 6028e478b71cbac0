#include "gallery/encoders/ras_encoder.h"

#include "gallery/encoders/byte_writer.h"
#include "gallery/encoders/packed_rows.h"
#include "pictures/pixels.h"

namespace lumidex {
namespace {

void WriteRuns(ByteWriter& writer, std::span<const std::uint8_t> bytes) {
  constexpr std::uint8_t escape = 0x80;
  for (std::size_t place = 0; place < bytes.size();) {
    const std::size_t run = RunLength(bytes, place, 256);
    const std::uint8_t value = bytes[place];
    if (value == escape && run == 1) {
      writer.U8(escape).U8(0);
    } else if (value == escape || run > 2) {
      writer.U8(escape).U8(static_cast<std::uint32_t>(run - 1)).U8(value);
    } else {
      writer.Fill(run, value);
    }
    place += run;
  }
}

std::vector<std::uint8_t> Encode(Size size, std::uint32_t depth, const Colours& map,
                                 std::vector<std::uint8_t> rows, RasForm form) {
  ByteWriter coded;
  if (form == RasForm::RunLength) {
    WriteRuns(coded, rows);
  } else {
    coded.Append(rows);
  }
  ByteWriter writer;
  writer.U32Be(0x59A66A95);
  writer.U32Be(static_cast<std::uint32_t>(size.width)).U32Be(static_cast<std::uint32_t>(size.height));
  writer.U32Be(depth).U32Be(static_cast<std::uint32_t>(coded.Size()));
  writer.U32Be(form == RasForm::RunLength ? 2 : 1);
  writer.U32Be(map.empty() ? 0 : 1).U32Be(static_cast<std::uint32_t>(3 * map.size()));
  for (const int shift : {16, 8, 0})
    for (const std::uint32_t colour : map) writer.U8(colour >> shift);
  return writer.Append(coded.Bytes()).Take();
}

}  // namespace

std::vector<std::uint8_t> EncodeRas(const Pixels& pixels, RasForm form) {
  ByteWriter rows;
  for (int y = 0; y < pixels.Height(); ++y) {
    for (const std::uint32_t pixel : pixels.Row(y)) rows.U8(pixel).U8(pixel >> 8).U8(pixel >> 16);
    rows.PadTo(2);
  }
  return Encode(pixels.GetSize(), 24, {}, rows.Take(), form);
}

std::vector<std::uint8_t> EncodeRas(const IndexedPicture& picture, RasForm form) {
  const bool twoColours = picture.palette.size() <= 2;
  ByteWriter rows;
  for (int y = 0; y < picture.size.height; ++y) {
    std::vector<std::uint8_t> row(picture.Row(y).begin(), picture.Row(y).end());
    if (twoColours) {
      for (std::uint8_t& index : row) index ^= 1;  // 1 is black
      row = PackRow(row, 1);
    }
    rows.Append(row).PadTo(2);
  }
  return Encode(picture.size, twoColours ? 1 : 8, twoColours ? Colours{} : picture.palette, rows.Take(),
                form);
}

}  // namespace lumidex
