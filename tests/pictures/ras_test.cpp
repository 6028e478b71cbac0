#include "pictures/codecs/ras.h"

#include <gmock/gmock.h>

#include "base/run_time_error.h"
#include "gallery/encoders/ras_encoder.h"
#include "pictures/support/byte_writer.h"
#include "pictures/support/colours.h"
#include "pictures/support/patterns.h"

namespace lumidex::ras {
namespace {

using testing::ElementsAre;

using argb::red, argb::green, argb::black, argb::white;

struct Header {
  std::uint32_t width = 1, height = 1, depth = 24, type = 1, mapType = 0, mapBytes = 0;
};

ByteWriter Start(const Header& header) {
  ByteWriter file;
  file.U32Be(0x59A66A95).U32Be(header.width).U32Be(header.height).U32Be(header.depth).U32Be(0);
  return file.U32Be(header.type).U32Be(header.mapType).U32Be(header.mapBytes);
}

std::vector<std::uint32_t> WordsIn(const ByteWriter& file) {
  return WordsOf(DecodeBytes(file.Bytes()));
}

TEST(Ras, Pictures_come_back) {
  for (const auto form : {RasForm::Plain, RasForm::RunLength}) {
    const Pixels pattern = ColourPattern({37, 23});
    EXPECT_EQ(WordsOf(DecodeBytes(EncodeRas(pattern, form))), WordsOf(pattern));
    for (const int colours : {2, 16, 256}) {
      const IndexedPicture picture =
          Stripes({301, 40}, colours == 2 ? BlackAndWhite() : DistinctColours(colours));
      const auto file = EncodeRas(picture, form);
      EXPECT_EQ(OpenBytes(file)->Facts().bitsPerPixel, colours == 2 ? 1 : 8);
      EXPECT_EQ(WordsOf(DecodeBytes(file)), WordsOf(Expand(picture))) << colours;
    }
  }
}

TEST(Ras, Old_files_need_no_length) {
  auto file = Start({.type = 0});
  file.Add({0, 0, 255, 0});
  EXPECT_THAT(WordsIn(file), ElementsAre(red));
}

TEST(Ras, Type_3_has_red_first) {
  auto file = Start({.type = 3});
  file.Add({255, 0, 0, 0});
  EXPECT_THAT(WordsIn(file), ElementsAre(red));
}

TEST(Ras, The_first_byte_of_32_bits_means_nothing) {
  auto file = Start({.depth = 32});
  file.Add({77, 0, 0, 255});
  const Pixels pixels = DecodeBytes(file.Bytes());
  EXPECT_THAT(WordsOf(pixels), ElementsAre(red));
  EXPECT_EQ(pixels.Format(), PixelFormat::Rgb);
}

TEST(Ras, One_bit_is_black_on_white_unless_there_is_a_map) {
  auto plain = Start({.width = 2, .depth = 1});
  plain.Add({0x40, 0});
  EXPECT_THAT(WordsIn(plain), ElementsAre(white, black));
  auto mapped = Start({.width = 2, .depth = 1, .mapType = 1, .mapBytes = 6});
  mapped.Add({255, 0, 0, 255, 0, 0}).Add({0x40, 0});
  EXPECT_THAT(WordsIn(mapped), ElementsAre(red, green));
}

TEST(Ras, Four_and_eight_bits_without_a_map_are_greys) {
  auto four = Start({.width = 2, .depth = 4});
  four.Add({0x1F, 0});
  EXPECT_THAT(WordsIn(four), ElementsAre(0xFF111111U, white));
  auto eight = Start({.width = 2, .depth = 8});
  eight.Add({0x12, 0xFF});
  EXPECT_THAT(WordsIn(eight), ElementsAre(0xFF121212U, white));
}

TEST(Ras, A_raw_map_is_passed_over) {
  auto file = Start({.width = 2, .depth = 8, .mapType = 2, .mapBytes = 3});
  file.Add({9, 9, 9}).Add({0, 1});
  EXPECT_THAT(WordsIn(file), ElementsAre(black, 0xFF010101U));
}

TEST(Ras, A_map_that_is_counted_but_not_announced_is_used) {
  auto file = Start({.width = 2, .depth = 8, .mapType = 0, .mapBytes = 6});
  file.Add({255, 0, 0, 255, 0, 0}).Add({0, 1});
  EXPECT_THAT(WordsIn(file), ElementsAre(red, green));
  auto odd = Start({.width = 2, .depth = 8, .mapType = 0, .mapBytes = 5});
  odd.Add({9, 9, 9, 9, 9}).Add({0, 1});
  EXPECT_THAT(WordsIn(odd), ElementsAre(black, 0xFF010101U));
}

TEST(Ras, A_map_of_an_odd_length_has_the_entries_that_are_whole) {
  auto file = Start({.width = 2, .depth = 8, .mapType = 1, .mapBytes = 7});
  file.Add({255, 0, 0, 255, 0, 0, 9}).Add({0, 1});
  EXPECT_THAT(WordsIn(file), ElementsAre(red, green));
}

TEST(Ras, The_length_of_the_rows_is_not_believed) {
  for (const unsigned type : {0U, 1U}) {
    auto bytes = Start({.type = type}).Add({0, 0, 255, 0}).Take();
    bytes[19] = 1;
    EXPECT_THAT(WordsOf(DecodeBytes(bytes)), ElementsAre(red));
    bytes[16] = 0x7F;
    EXPECT_THAT(WordsOf(DecodeBytes(bytes)), ElementsAre(red));
  }
}

TEST(Ras, Runs_take_no_notice_of_rows_and_padding) {
  auto file = Start({.width = 1, .height = 3, .depth = 8, .type = 2});
  file.Add({0x80, 3, 5, 0x80, 0, 7});
  EXPECT_THAT(WordsIn(file), ElementsAre(0xFF050505U, 0xFF050505U, 0xFF808080U));
}

TEST(Ras, The_last_padding_may_be_missing) {
  auto file = Start({});
  file.Add({0, 0, 255});
  EXPECT_THAT(WordsIn(file), ElementsAre(red));
}

TEST(Ras, Rows_behind_a_cut_are_blank) {
  auto file = Start({.height = 2});
  file.Add({0, 0, 255, 0, 1, 2});
  EXPECT_THAT(WordsIn(file), ElementsAre(red, blankPixel));
}

TEST(Ras, A_bad_header_is_refused) {
  const auto open = [](const Header& header) { OpenBytes(Start(header).Bytes(), ".ras"); };
  EXPECT_THROW(open({.width = 0x7FFFFFFF, .height = 0x7FFFFFFF}), RunTimeError);
  EXPECT_THROW(open({.width = 0xFFFFFFFF}), RunTimeError);
  EXPECT_THROW(open({.height = 0}), RunTimeError);
  EXPECT_THROW(open({.depth = 2}), RunTimeError);
  EXPECT_THROW(open({.type = 5}), RunTimeError);
  EXPECT_THROW(open({.mapBytes = 0x7FFFFFFF}), RunTimeError);
  EXPECT_THROW(OpenBytes({0x59, 0xA6, 0x6A, 0x95, 0, 0, 0, 1}, ".ras"), RunTimeError);
  EXPECT_THROW(OpenBytes(std::vector<std::uint8_t>(200, 0x20), ".ras"), RunTimeError);
}

}  // namespace
}  // namespace lumidex::ras
