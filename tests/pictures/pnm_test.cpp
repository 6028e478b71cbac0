#include "pictures/codecs/pnm.h"

#include <gmock/gmock.h>

#include "base/run_time_error.h"
#include "pictures/support/byte_writer.h"
#include "pictures/support/colours.h"

namespace lumidex::pnm {
namespace {

using testing::ElementsAre;

std::vector<std::uint8_t> File(std::string_view text, const std::vector<std::uint8_t>& pixels = {}) {
  return ByteWriter().Text(text).Add(pixels).Bytes();
}

using argb::black, argb::white;

TEST(Pnm, Bits_are_black_where_they_are_one) {
  EXPECT_THAT(WordsOf(DecodeBytes(File("P4\n3 2\n", {0xA0, 0x40}))),
              ElementsAre(black, white, black, white, black, white));
}

TEST(Pnm, Plain_bits_need_no_blanks_between_them) {
  EXPECT_THAT(WordsOf(DecodeBytes(File("P1 3 1 101"))), ElementsAre(black, white, black));
  EXPECT_THAT(WordsOf(DecodeBytes(File("P1 3 1 1 0 1"))), ElementsAre(black, white, black));
}

TEST(Pnm, Comments_may_stand_anywhere_in_the_header) {
  EXPECT_THAT(WordsOf(DecodeBytes(File("P5 # one\n#two\r\n1 # three\n 1\n255\n", {7}))),
              ElementsAre(0xFF070707U));
}

TEST(Pnm, A_comment_may_follow_the_last_number_at_once) {
  EXPECT_THAT(WordsOf(DecodeBytes(File("P5 1 1 255#note\n", {7}))), ElementsAre(0xFF070707U));
  EXPECT_THAT(WordsOf(DecodeBytes(File("P4 1 1#note\n", {0x80}))), ElementsAre(black));
}

TEST(Pnm, A_line_end_of_two_characters_may_end_the_header) {
  EXPECT_THAT(WordsOf(DecodeBytes(File("P5\r\n2 1\r\n255\r\n", {7, 10}))),
              ElementsAre(0xFF070707U, 0xFF0A0A0AU));
  // Here the second character is the first pixel.
  EXPECT_THAT(WordsOf(DecodeBytes(File("P5\r2 1\r255\r", {10, 7}))), ElementsAre(0xFF0A0A0AU, 0xFF070707U));
}

TEST(Pnm, Of_several_pictures_the_first_is_shown) {
  EXPECT_THAT(WordsOf(DecodeBytes(File("P5 1 1 255\n\x07P5 1 1 255\n\x09"))), ElementsAre(0xFF070707U));
}

TEST(Pnm, Maps_of_black_and_white_have_1_for_white) {
  const auto file = File("P7\r\nWIDTH\t2\r\nHEIGHT 1\r\nDEPTH 1\r\nMAXVAL 1\r\nENDHDR\r\n", {1, 0});
  EXPECT_EQ(OpenBytes(file, ".pnm")->Facts().bitsPerPixel, 1);
  EXPECT_THAT(WordsOf(DecodeBytes(file, ".pnm")), ElementsAre(white, black));
}

TEST(Pnm, Samples_are_spread_over_the_whole_range_and_rounded) {
  EXPECT_THAT(WordsOf(DecodeBytes(File("P2 4 1 7  0 1 4 7"))),
              ElementsAre(black, 0xFF242424U, 0xFF929292U, white));
}

TEST(Pnm, Samples_above_the_greatest_are_taken_for_it) {
  EXPECT_THAT(WordsOf(DecodeBytes(File("P2 1 1 7 99"))), ElementsAre(white));
}

TEST(Pnm, Two_bytes_a_sample_have_the_high_one_first) {
  const auto file = File("P6 1 1 65535\n", {0xFF, 0xFF, 0x80, 0x00, 0x00, 0xFF});
  EXPECT_THAT(WordsOf(DecodeBytes(file)), ElementsAre(0xFFFF8001U));
}

TEST(Pnm, Samples_of_colours_are_red_green_blue) {
  EXPECT_THAT(WordsOf(DecodeBytes(File("P6 2 1 255 ", {1, 2, 3, 4, 5, 6}))),
              ElementsAre(0xFF010203U, 0xFF040506U));
  EXPECT_THAT(WordsOf(DecodeBytes(File("P3 1 1 255 1 2 3"))), ElementsAre(0xFF010203U));
}

TEST(Pnm, Grey_may_have_alpha) {
  const auto file = File("P7\nWIDTH 2\nHEIGHT 1\nDEPTH 2\nMAXVAL 255\nENDHDR\n", {7, 128, 9, 0});
  EXPECT_EQ(OpenBytes(file)->Facts().bitsPerPixel, 16);
  EXPECT_THAT(WordsOf(DecodeBytes(file)), ElementsAre(0x80070707U, 0U));
}

TEST(Pnm, A_map_with_alpha_is_read) {
  const auto file =
      File("P7\nWIDTH 1\nHEIGHT 1\n# note\nDEPTH 4\nMAXVAL 255\nTUPLTYPE RGB_ALPHA\nENDHDR\n", {1, 2, 3, 4});
  EXPECT_THAT(WordsOf(DecodeBytes(file)), ElementsAre(0x04010203U));
}

TEST(Pnm, Depth_is_that_of_the_samples) {
  EXPECT_EQ(OpenBytes(File("P4 1 1 "))->Facts().bitsPerPixel, 1);
  EXPECT_EQ(OpenBytes(File("P5 1 1 255 "))->Facts().bitsPerPixel, 8);
  EXPECT_EQ(OpenBytes(File("P5 1 1 256 "))->Facts().bitsPerPixel, 16);
  EXPECT_EQ(OpenBytes(File("P6 1 1 255 "))->Facts().bitsPerPixel, 24);
  EXPECT_EQ(OpenBytes(File("P3 1 1 65535 "))->Facts().bitsPerPixel, 24);
}

TEST(Pnm, What_is_missing_stays_blank) {
  EXPECT_THAT(WordsOf(DecodeBytes(File("P5 2 2 255 ", {1, 2, 3}))),
              ElementsAre(0xFF010101U, 0xFF020202U, 0xFF030303U, blankPixel));
  EXPECT_THAT(WordsOf(DecodeBytes(File("P2 2 1 255 9 oops"))), ElementsAre(0xFF090909U, blankPixel));
}

TEST(Pnm, Maps_of_floating_point_numbers_are_refused_by_name) {
  for (const char* text : {"PF\n1 1\n-1.0\n", "Pf 1 1 1.0 "}) {
    try {
      OpenBytes(File(text), ".ppm");
      FAIL();
    } catch (const RunTimeError& error) {
      EXPECT_THAT(error.what(), testing::HasSubstr("floating-point"));
    }
  }
}

class PnmRefusal : public testing::TestWithParam<const char*> {};

TEST_P(PnmRefusal, Is_an_invalid_picture) {
  EXPECT_THROW(OpenBytes(File(GetParam())), RunTimeError);
}

INSTANTIATE_TEST_SUITE_P(Headers, PnmRefusal,
                         testing::Values("P5 0 1 255 ", "P5 -1 1 255 ", "P5 1 1 0 ", "P5 1 1 65536 ",
                                         "P5 32768 1 255 ", "P5 1 32768 255 ", "P6 32767 32767 255 ",
                                         "P5 99999999999 1 255 ", "P5 1", "PF 1 1 -1.0 ",
                                         "P7\nWIDTH 1\nHEIGHT 1\nDEPTH 9\nMAXVAL 1\nENDHDR\n"));

}  // namespace
}  // namespace lumidex::pnm
