#include "pictures/pack_bits.h"

#include <gmock/gmock.h>

#include <vector>

namespace lumidex {
namespace {

using testing::ElementsAre;
using ByteVector = std::vector<std::uint8_t>;

ByteVector Unpack(const ByteVector& packed, std::size_t room) {
  ByteVector unpacked(room);
  unpacked.resize(PackBits(ByteReader(packed)).Read(unpacked));
  return unpacked;
}

TEST(PackBits, A_count_up_to_127_copies_one_byte_more) {
  EXPECT_THAT(Unpack({2, 7, 8, 9, 0, 5}, 9), ElementsAre(7, 8, 9, 5));
}

TEST(PackBits, A_count_from_129_on_repeats_a_byte) {
  EXPECT_THAT(Unpack({254, 7}, 9), ElementsAre(7, 7, 7));
  EXPECT_EQ(Unpack({129, 1}, 500), ByteVector(128, 1));
}

TEST(PackBits, A_count_of_128_means_nothing) {
  EXPECT_THAT(Unpack({128, 128, 0, 5}, 9), ElementsAre(5));
}

TEST(PackBits, A_run_goes_on_in_the_next_piece) {
  const ByteVector packed{253, 7, 3, 1, 2, 3, 4};
  PackBits unpacker{ByteReader(packed)};
  ByteVector piece(3);
  EXPECT_EQ(unpacker.Read(piece), 3U);
  EXPECT_THAT(piece, ElementsAre(7, 7, 7));
  EXPECT_EQ(unpacker.Read(piece), 3U);
  EXPECT_THAT(piece, ElementsAre(7, 1, 2));
  EXPECT_EQ(unpacker.Read(piece), 2U);
  EXPECT_THAT(piece, ElementsAre(3, 4, 2));
}

TEST(PackBits, A_cut_input_gives_what_there_is) {
  EXPECT_THAT(Unpack({5, 1, 2}, 9), ElementsAre(1, 2));
  EXPECT_THAT(Unpack({0, 1, 250}, 9), ElementsAre(1));
  EXPECT_THAT(Unpack({}, 9), ElementsAre());
}

}  // namespace
}  // namespace lumidex
