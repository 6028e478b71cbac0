#include "gallery/encoders/pcx_encoder.h"

#include "gallery/encoders/byte_writer.h"
#include "gallery/encoders/packed_rows.h"
#include "pictures/pixels.h"

namespace lumidex {
namespace {

std::size_t Even(std::size_t bytes) {
  return (bytes + 1) / 2 * 2;
}

void WriteHeader(ByteWriter& writer, Size size, int bits, int planes, std::size_t planeBytes,
                 const Colours& palette) {
  constexpr std::size_t headerSize = 128, headerColours = 16;
  writer.U8(0x0A).U8(5).U8(1).U8(static_cast<std::uint32_t>(bits));
  writer.U16Le(0).U16Le(0);
  writer.U16Le(static_cast<std::uint32_t>(size.width - 1)).U16Le(static_cast<std::uint32_t>(size.height - 1));
  writer.U16Le(72).U16Le(72);
  for (std::size_t i = 0; i < headerColours; ++i) {
    const std::uint32_t colour = i < palette.size() ? palette[i] : 0;
    writer.U8(colour >> 16).U8(colour >> 8).U8(colour);
  }
  writer.U8(0).U8(static_cast<std::uint32_t>(planes)).U16Le(static_cast<std::uint32_t>(planeBytes)).U16Le(1);
  writer.PadTo(headerSize);
}

void WriteRuns(ByteWriter& writer, std::span<const std::uint8_t> row) {
  for (std::size_t place = 0; place < row.size();) {
    const std::size_t run = RunLength(row, place, 63);
    if (run > 1 || row[place] >= 0xC0) writer.U8(static_cast<std::uint32_t>(0xC0 + run));
    writer.U8(row[place]);
    place += run;
  }
}

}  // namespace

std::vector<std::uint8_t> EncodePcx(const Pixels& pixels) {
  const int planes = pixels.Format() == PixelFormat::Rgb ? 3 : 4;
  const std::size_t width = static_cast<std::size_t>(pixels.Width());
  ByteWriter writer;
  WriteHeader(writer, pixels.GetSize(), 8, planes, Even(width), {});
  std::vector<std::uint8_t> row(Even(width));
  for (int y = 0; y < pixels.Height(); ++y) {
    for (const int shift : {16, 8, 0, 24}) {
      if (shift == 24 && planes == 3) continue;
      for (std::size_t x = 0; x < width; ++x) row[x] = static_cast<std::uint8_t>(pixels.Row(y)[x] >> shift);
      WriteRuns(writer, row);
    }
  }
  return writer.Take();
}

std::vector<std::uint8_t> EncodePcx(const IndexedPicture& picture) {
  const bool large = picture.palette.size() > 16;
  const int planes = large || picture.palette.size() <= 2 ? 1 : 4;
  const std::size_t width = static_cast<std::size_t>(picture.size.width);
  const std::size_t planeBytes = Even(large ? width : (width + 7) / 8);
  ByteWriter writer;
  WriteHeader(writer, picture.size, large ? 8 : 1, planes, planeBytes, large ? Colours{} : picture.palette);
  for (int y = 0; y < picture.size.height; ++y) {
    const auto indices = picture.Row(y);
    for (int plane = 0; plane < planes; ++plane) {
      std::vector<std::uint8_t> row = large ? PackRow(indices, 8) : PackPlane(indices, plane);
      row.resize(planeBytes);
      WriteRuns(writer, row);
    }
  }
  if (!large) return writer.Take();
  writer.U8(0x0C);
  for (std::size_t i = 0; i < 256; ++i) {
    const std::uint32_t colour = i < picture.palette.size() ? picture.palette[i] : 0;
    writer.U8(colour >> 16).U8(colour >> 8).U8(colour);
  }
  return writer.Take();
}

}  // namespace lumidex
