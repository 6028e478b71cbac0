#include "pictures/byte_stream.h"

#include <gmock/gmock.h>

#include "pictures/file_decoder.h"
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

TEST(ByteStream, Bytes_come_one_by_one_and_the_last_may_be_taken_back) {
  const PictureData data = Counting(4100);
  // In blocks of two bytes, so that each second byte is the first of a block.
  ByteStream stream(data.Source(), 4096, 2);
  EXPECT_EQ(stream.Next(), 4096 % 251);
  EXPECT_EQ(stream.Next(), 4097 % 251);
  EXPECT_EQ(stream.Next(), 4098 % 251);
  stream.Back();
  EXPECT_EQ(stream.Position(), 4098U);
  EXPECT_EQ(stream.Next(), 4098 % 251);
  EXPECT_EQ(stream.Next(), 4099 % 251);
  EXPECT_EQ(stream.Next(), -1);
  EXPECT_EQ(stream.Next(), -1);
}

TEST(ByteStream, Reading_fills_a_place_longer_than_a_block) {
  const PictureData data = Counting(5000);
  ByteStream stream(data.Source(), 10, 16);
  std::vector<std::uint8_t> place(4985);
  EXPECT_EQ(stream.Read(place), 4985U);
  EXPECT_EQ(place.front(), 10);
  EXPECT_EQ(place.back(), 4994 % 251);
  EXPECT_EQ(stream.Read(place), 5U);
  EXPECT_EQ(stream.Read(place), 0U);
}

TEST(ByteStream, What_is_left_out_is_not_read) {
  const PictureData data = Counting(20'000);
  ByteStream stream(data.Source(), 0, 16);
  EXPECT_EQ(stream.Next(), 0);
  stream.Skip(3);
  EXPECT_EQ(stream.Next(), 4);
  stream.Skip(9995);
  EXPECT_EQ(stream.Position(), 10'000U);
  EXPECT_EQ(stream.Next(), 10'000 % 251);
  stream.Skip(1'000'000'000'000);
  EXPECT_EQ(stream.Next(), -1);
}

TEST(BitmapDepth, Is_the_least_that_holds_a_pixel_of_eight_bits_a_channel) {
  EXPECT_EQ(BitmapDepth(1), 1);
  EXPECT_EQ(BitmapDepth(3), 4);
  EXPECT_EQ(BitmapDepth(15), 16);
  EXPECT_EQ(BitmapDepth(24), 24);
  EXPECT_EQ(BitmapDepth(25, 4), 32);
  EXPECT_EQ(BitmapDepth(48), 24);
  EXPECT_EQ(BitmapDepth(48, 4), 32);
  EXPECT_EQ(BitmapDepth(64, 4), 32);
}

}  // namespace
}  // namespace lumidex
