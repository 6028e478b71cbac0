#include "gallery/encoders/bmp_encoder.h"

#include <algorithm>

#include "gallery/encoders/byte_writer.h"
#include "pictures/pixels.h"

namespace lumidex {
namespace {

constexpr std::uint32_t Uncompressed = 0, RunLength8 = 1, RunLength4 = 2;

int DepthFor(const Colours& palette) {
  return palette.size() <= 2 ? 1 : palette.size() <= 16 ? 4 : 8;
}

std::vector<std::uint8_t> Assemble(Size size, int depth, std::uint32_t compression, const Colours& palette,
                                   const std::vector<std::uint8_t>& rows) {
  constexpr std::uint32_t headers = 14 + 40;
  const auto colours = static_cast<std::uint32_t>(palette.size());
  ByteWriter file;
  file.Append("BM");
  file.U32Le(headers + 4 * colours + static_cast<std::uint32_t>(rows.size()));
  file.U32Le(0);
  file.U32Le(headers + 4 * colours);
  file.U32Le(40);
  file.U32Le(static_cast<std::uint32_t>(size.width));
  file.U32Le(static_cast<std::uint32_t>(size.height));
  file.U16Le(1);
  file.U16Le(static_cast<std::uint32_t>(depth));
  file.U32Le(compression);
  file.U32Le(static_cast<std::uint32_t>(rows.size()));
  file.U32Le(3780);  // dots a metre, across and down: 96 an inch
  file.U32Le(3780);
  file.U32Le(colours);
  file.U32Le(0);
  for (const std::uint32_t colour : palette) file.U32Le(colour & 0xFFFFFF);
  file.Append(rows);
  return file.Take();
}

std::size_t RunAt(std::span<const std::uint8_t> row, std::size_t x) {
  std::size_t length = 1;
  while (x + length < row.size() && length < 255 && row[x + length] == row[x]) ++length;
  return length;
}

// Pixels from x on that are better written as they stand: up to the next run of at least four.
std::size_t LiteralAt(std::span<const std::uint8_t> row, std::size_t x) {
  std::size_t length = 0;
  while (x + length < row.size() && length < 254 && RunAt(row, x + length) < 4) ++length;
  return length;
}

void WriteRuns(ByteWriter& writer, std::span<const std::uint8_t> row, bool nibbles) {
  for (std::size_t x = 0; x < row.size();) {
    const std::size_t literal = LiteralAt(row, x);
    if (literal < 3) {  // a count below 3 after the escape means something else
      const std::size_t run = RunAt(row, x);
      writer.U8(static_cast<std::uint32_t>(run));
      writer.U8(nibbles ? row[x] * 17U : row[x]);
      x += run;
      continue;
    }
    writer.U8(0);
    writer.U8(static_cast<std::uint32_t>(literal));
    ByteWriter pixels;
    for (std::size_t i = 0; i < literal; i += nibbles ? 2 : 1) {
      const std::uint32_t second = i + 1 < literal ? row[x + i + 1] : 0;
      pixels.U8(nibbles ? row[x + i] * 16U + second : row[x + i]);
    }
    pixels.PadTo(2);
    writer.Append(pixels.Take());
    x += literal;
  }
}

}  // namespace

std::vector<std::uint8_t> EncodeBmp(const Pixels& pixels) {
  ByteWriter rows;
  for (int y = pixels.Height() - 1; y >= 0; --y) {
    for (const std::uint32_t word : pixels.Row(y)) {
      rows.U16Le(word);
      rows.U8(word >> 16);
    }
    rows.PadTo(4);
  }
  return Assemble(pixels.GetSize(), 24, Uncompressed, {}, rows.Take());
}

std::vector<std::uint8_t> EncodeBmp(const IndexedPicture& picture) {
  const int depth = DepthFor(picture.palette);
  const auto perByte = static_cast<std::size_t>(8 / depth);
  ByteWriter rows;
  for (int y = picture.size.height - 1; y >= 0; --y) {
    const std::span<const std::uint8_t> row = picture.Row(y);
    for (std::size_t x = 0; x < row.size(); x += perByte) {
      std::uint32_t packed = 0;
      for (std::size_t i = 0; i < perByte; ++i)
        packed = packed << depth | (x + i < row.size() ? row[x + i] : 0U);
      rows.U8(packed);
    }
    rows.PadTo(4);
  }
  return Assemble(picture.size, depth, Uncompressed, picture.palette, rows.Take());
}

std::vector<std::uint8_t> EncodeRunLengthBmp(const IndexedPicture& picture) {
  const bool nibbles = picture.palette.size() <= 16;
  ByteWriter rows;
  for (int y = picture.size.height - 1; y >= 0; --y) {
    WriteRuns(rows, picture.Row(y), nibbles);
    rows.U8(0);
    rows.U8(y == 0 ? 1 : 0);  // end of the picture, else of the row
  }
  return Assemble(picture.size, nibbles ? 4 : 8, nibbles ? RunLength4 : RunLength8, picture.palette,
                  rows.Take());
}

}  // namespace lumidex
