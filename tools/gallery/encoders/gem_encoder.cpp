#include "gallery/encoders/gem_encoder.h"

#include <algorithm>

#include "gallery/encoders/byte_writer.h"
#include "gallery/encoders/packed_rows.h"

namespace lumidex {
namespace {

void AppendHeader(ByteWriter& file, Size size, std::uint32_t words, int planes) {
  constexpr std::uint32_t patternBytes = 2, dotMicrometres = 85;
  file.U16Be(1).U16Be(words).U16Be(static_cast<std::uint32_t>(planes)).U16Be(patternBytes);
  file.U16Be(dotMicrometres).U16Be(dotMicrometres);
  file.U16Be(static_cast<std::uint32_t>(size.width)).U16Be(static_cast<std::uint32_t>(size.height));
}

bool IsSolid(std::uint8_t byte) {
  return byte == 0 || byte == 0xFF;
}

// Repeated pairs of bytes that begin at `at`; the pattern's length is two.
std::size_t PatternCount(std::span<const std::uint8_t> line, std::size_t at) {
  std::size_t count = 1;
  while (count < 255 && at + count * 2 + 2 <= line.size() && line[at + count * 2] == line[at] &&
         line[at + count * 2 + 1] == line[at + 1])
    ++count;
  return at + 2 <= line.size() ? count : 0;
}

void AppendLine(ByteWriter& file, std::span<const std::uint8_t> line) {
  constexpr std::size_t worthAPattern = 3;
  for (std::size_t at = 0; at < line.size();) {
    if (IsSolid(line[at])) {
      const std::size_t run = RunLength(line, at, 127);
      file.U8(static_cast<std::uint32_t>(run) | (line[at] == 0 ? 0U : 0x80U));
      at += run;
    } else if (const std::size_t count = PatternCount(line, at); count >= worthAPattern) {
      file.U8(0).U8(static_cast<std::uint32_t>(count)).Append(line.subspan(at, 2));
      at += count * 2;
    } else {
      std::size_t length = 1;
      while (length < 255 && at + length < line.size() && !IsSolid(line[at + length]) &&
             PatternCount(line, at + length) < worthAPattern)
        ++length;
      file.U8(0x80).U8(static_cast<std::uint32_t>(length)).Append(line.subspan(at, length));
      at += length;
    }
  }
}

// `inverted` flips every bit, for pictures in which 1 is black.
void AppendRows(ByteWriter& file, const IndexedPicture& picture, int planes, bool inverted) {
  for (int y = 0; y < picture.size.height;) {
    int repeats = 1;
    while (repeats < 255 && y + repeats < picture.size.height &&
           std::ranges::equal(picture.Row(y), picture.Row(y + repeats)))
      ++repeats;
    if (repeats > 1) file.U8(0).U8(0).U8(0xFF).U8(static_cast<std::uint32_t>(repeats));
    for (int plane = 0; plane < planes; ++plane) {
      std::vector<std::uint8_t> line = PackPlane(picture.Row(y), plane);
      if (inverted) {
        for (std::uint8_t& byte : line) byte = static_cast<std::uint8_t>(~byte);
      }
      AppendLine(file, line);
    }
    y += repeats;
  }
}

}  // namespace

std::vector<std::uint8_t> EncodeGem(const IndexedPicture& picture) {
  ByteWriter file;
  AppendHeader(file, picture.size, 8, 1);
  AppendRows(file, picture, 1, true);
  return file.Take();
}

std::vector<std::uint8_t> EncodeXimg(const IndexedPicture& picture) {
  int planes = 1;
  while (std::size_t{1} << planes < picture.palette.size()) ++planes;
  const std::size_t colours = std::size_t{1} << planes;
  ByteWriter file;
  AppendHeader(file, picture.size, static_cast<std::uint32_t>(11 + 3 * colours), planes);
  file.Text("XIMG").U16Be(0);
  const auto component = [&file](std::uint32_t value) { file.U16Be(((value & 255) * 1000 + 127) / 255); };
  for (std::size_t i = 0; i < colours; ++i) {
    const std::uint32_t colour = i < picture.palette.size() ? picture.palette[i] : 0;
    component(colour >> 16);
    component(colour >> 8);
    component(colour);
  }
  AppendRows(file, picture, planes, false);
  return file.Take();
}

}  // namespace lumidex
