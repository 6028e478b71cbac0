#include "pictures/byte_stream.h"

#include <gmock/gmock.h>

#include "pictures/support/byte_writer.h"

namespace lumidex {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Byte i is i modulo 251, so that places a block apart differ.
PictureData Counting(std::size_t size) {
  std::vector<std::uint8_t> bytes(size);
  for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<std::uint8_t>(i % 251);
  return DataOf(std::move(bytes));
}

TEST(ByteStream, Gives_every_byte_once_whatever_the_pieces) {
  const PictureData data = Counting(300'000);
  for (const std::size_t piece : {std::size_t{7}, std::size_t{65'535}, std::size_t{200'000}}) {
    ByteStream stream(data, 5);
    std::size_t place = 5;
    for (Bytes taken = stream.Take(piece); !taken.empty(); taken = stream.Take(piece)) {
      for (const std::uint8_t byte : taken) ASSERT_EQ(byte, place++ % 251) << piece;
      EXPECT_EQ(stream.Position(), place);
    }
    EXPECT_EQ(place, 300'000U);
  }
}

TEST(ByteStream, Looking_ahead_takes_nothing) {
  const PictureData data = Counting(10);
  ByteStream stream(data, 0);
  EXPECT_GE(stream.Ahead(4).size(), 4U);
  stream.Advance(3);
  EXPECT_THAT(stream.Take(2), ElementsAre(3, 4));
}

TEST(ByteStream, Ends_where_it_is_told_and_at_the_end_of_the_file) {
  const PictureData data = Counting(10);
  EXPECT_THAT(ByteStream(data, 2, 4).Take(9), ElementsAre(2, 3));
  EXPECT_THAT(ByteStream(data, 8, 99).Take(9), ElementsAre(8, 9));
  EXPECT_THAT(ByteStream(data, 99).Take(9), IsEmpty());
  ByteStream stream(data, 9);
  stream.Advance(5);
  EXPECT_THAT(stream.Ahead(1), ElementsAre(9));
  stream.Advance(5);
  EXPECT_THAT(stream.Ahead(1), IsEmpty());
}

}  // namespace
}  // namespace lumidex
