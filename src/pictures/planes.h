#pragma once
// Turns rows of packed bits, of bit planes or of palette indices into pixels, whole bytes at a time.

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "pictures/palettes.h"
#include "pictures/picture_data.h"
#include "pictures/pixels.h"

namespace lumidex {

// Bytes that `width` pixels of `bits` bits each take, the last byte filled up.
constexpr std::size_t RowBytes(int width, int bits) {
  return (static_cast<std::size_t>(width) * static_cast<std::size_t>(bits) + 7) / 8;
}

// Rows of 1, 2, 4 or 8 bits a pixel, the leftmost pixel in the highest bits, through a palette. The table it
// makes costs 256 entries of up to 8 pixels, so make one for a picture, not for a row.
class PackedRows {
 public:
  PackedRows(int bitsPerPixel, const Palette& palette);

  // Writes as many pixels as `packed` has or `pixels` takes; the rest of `pixels` stays as it is.
  void Unpack(Bytes packed, std::span<std::uint32_t> pixels) const;

 private:
  std::size_t perByte_;
  std::vector<std::uint32_t> table_;  // the pixels of each byte value
};

// Rows of `rowBytes` bytes from the top on; where the bytes end, the rest of the picture becomes blank.
void UnpackRows(Bytes packed, std::size_t rowBytes, const PackedRows& rows, Pixels& pixels);

// Makes the pixels of row `y` from column `column` on blank, and all rows below.
void BlankFrom(Pixels& pixels, int y, std::size_t column = 0);

// Each index through the palette; as many as there are of both.
void LookUp(Bytes indices, const Palette& palette, std::span<std::uint32_t> pixels);

// Joins one row of up to 8 bit planes into indices. The row of plane p begins at `rows[p * stride]`, its
// highest bit leftmost; plane p gives bit p. Bits that `rows` lacks are 0.
void JoinPlanes(Bytes rows, std::size_t stride, int planes, std::span<std::uint8_t> indices);

}  // namespace lumidex
