#include "pictures/planes.h"

#include <gmock/gmock.h>

namespace lumidex {
namespace {

using testing::ElementsAre;
using ByteVector = std::vector<std::uint8_t>;

// Entry i is the word i, so that pixels show their index.
Palette Indices() {
  Palette palette;
  for (std::uint32_t i = 0; i < 256; ++i) palette[i] = i;
  return palette;
}

std::vector<std::uint32_t> Unpack(int bits, const ByteVector& packed, std::size_t width) {
  std::vector<std::uint32_t> pixels(width, 99);
  PackedRows(bits, Indices()).Unpack(packed, pixels);
  return pixels;
}

TEST(PackedRows, The_leftmost_pixel_stands_in_the_highest_bits) {
  EXPECT_THAT(Unpack(1, {0xA1}, 8), ElementsAre(1, 0, 1, 0, 0, 0, 0, 1));
  EXPECT_THAT(Unpack(2, {0x1B}, 4), ElementsAre(0, 1, 2, 3));
  EXPECT_THAT(Unpack(4, {0xF7}, 2), ElementsAre(15, 7));
  EXPECT_THAT(Unpack(8, {0xF7}, 1), ElementsAre(0xF7));
}

TEST(PackedRows, A_row_may_end_inside_a_byte) {
  EXPECT_THAT(Unpack(1, {0x00, 0xE0}, 11), ElementsAre(0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1));
  EXPECT_THAT(Unpack(2, {0xFF}, 3), ElementsAre(3, 3, 3));
  EXPECT_THAT(Unpack(4, {0xF7, 0x10}, 3), ElementsAre(15, 7, 1));
}

TEST(PackedRows, What_the_bytes_lack_stays_as_it_is) {
  EXPECT_THAT(Unpack(4, {0xF7}, 4), ElementsAre(15, 7, 99, 99));
  EXPECT_THAT(Unpack(1, {}, 2), ElementsAre(99, 99));
  EXPECT_THAT(Unpack(8, {1, 2, 3}, 2), ElementsAre(1, 2));
}

TEST(JoinPlanes, Plane_p_gives_bit_p) {
  const ByteVector rows{0x80, 0xFF, 0x40, 0xFF, 0xC0};  // three planes, two bytes apart
  ByteVector indices(3);
  JoinPlanes(rows, 2, 3, indices);
  EXPECT_THAT(indices, ElementsAre(5, 6, 0));
}

TEST(JoinPlanes, Eight_planes_fill_a_byte) {
  const ByteVector rows(16, 0xFF);
  ByteVector indices(16);
  JoinPlanes(rows, 2, 8, indices);
  EXPECT_EQ(indices, ByteVector(16, 0xFF));
}

TEST(JoinPlanes, Bits_that_are_not_there_are_0) {
  const ByteVector rows{0xFF, 0xFF, 0xFF};
  ByteVector indices(16, 9);
  JoinPlanes(rows, 2, 3, indices);
  EXPECT_THAT(indices, ElementsAre(3, 3, 3, 3, 3, 3, 3, 3, 1, 1, 1, 1, 1, 1, 1, 1));
}

}  // namespace
}  // namespace lumidex
