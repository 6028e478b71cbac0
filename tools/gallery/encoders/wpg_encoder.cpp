#include "gallery/encoders/wpg_encoder.h"

#include <algorithm>

#include "gallery/encoders/byte_writer.h"
#include "gallery/encoders/packed_rows.h"

namespace lumidex {
namespace {

void WriteRecord(ByteWriter& writer, std::uint32_t type, const ByteWriter& content) {
  const std::size_t size = content.Size();
  writer.U8(type);
  if (size < 0xFF) {
    writer.U8(static_cast<std::uint32_t>(size));
  } else if (size < 0x8000) {
    writer.U8(0xFF).U16Le(static_cast<std::uint32_t>(size));
  } else {
    writer.U8(0xFF)
        .U16Le(static_cast<std::uint32_t>(0x8000 | size >> 16))
        .U16Le(static_cast<std::uint32_t>(size));
  }
  writer.Append(content.Bytes());
}

void WriteRuns(ByteWriter& writer, std::span<const std::uint8_t> row) {
  for (std::size_t place = 0; place < row.size();) {
    const std::size_t run = RunLength(row, place, 127);
    if (run > 1) {
      writer.U8(static_cast<std::uint32_t>(0x80 + run)).U8(row[place]);
      place += run;
      continue;
    }
    const std::size_t count = CopyLength(row, place, 127, 2);
    writer.U8(static_cast<std::uint32_t>(count)).Append(row.subspan(place, count));
    place += count;
  }
}

void WriteRows(ByteWriter& writer, const IndexedPicture& picture, int bits) {
  std::vector<std::vector<std::uint8_t>> rows;
  for (int y = 0; y < picture.size.height; ++y) rows.push_back(PackRow(picture.Row(y), bits));
  for (std::size_t y = 0; y < rows.size();) {
    WriteRuns(writer, rows[y]);
    const auto differs = std::find_if(rows.begin() + static_cast<std::ptrdiff_t>(y) + 1, rows.end(),
                                      [&](const auto& row) { return row != rows[y]; });
    std::size_t next = static_cast<std::size_t>(differs - rows.begin());
    next = std::min<std::size_t>(next, y + 256);
    if (next > y + 1) writer.U8(0).U8(static_cast<std::uint32_t>(next - y - 1));
    y = next;
  }
}

int BitsFor(std::size_t colours) {
  for (const int bits : {1, 2, 4})
    if (colours <= std::size_t{1} << bits) return bits;
  return 8;
}

}  // namespace

std::vector<std::uint8_t> EncodeWpg(const IndexedPicture& picture) {
  const int bits = BitsFor(picture.palette.size());
  const auto width = static_cast<std::uint32_t>(picture.size.width);
  const auto height = static_cast<std::uint32_t>(picture.size.height);
  constexpr std::uint32_t resolution = 75;  // of the bitmap; the page counts 1200 to the inch
  ByteWriter writer;
  writer.Add({0xFF, 'W', 'P', 'C'}).U32Le(16).Add({1, 0x16, 1, 0}).U16Le(0).U16Le(0);
  ByteWriter start;
  start.U8(1).U8(0).U16Le(width * 1200 / resolution).U16Le(height * 1200 / resolution);
  WriteRecord(writer, 0x0F, start);
  if (bits > 1) {
    ByteWriter map;
    map.U16Le(0).U16Le(static_cast<std::uint32_t>(picture.palette.size()));
    for (const std::uint32_t colour : picture.palette) map.U8(colour >> 16).U8(colour >> 8).U8(colour);
    WriteRecord(writer, 0x0E, map);
  }
  ByteWriter bitmap;
  bitmap.U16Le(width).U16Le(height).U16Le(static_cast<std::uint32_t>(bits));
  bitmap.U16Le(resolution).U16Le(resolution);
  WriteRows(bitmap, picture, bits);
  WriteRecord(writer, 0x0B, bitmap);
  WriteRecord(writer, 0x10, {});
  return writer.Take();
}

}  // namespace lumidex
