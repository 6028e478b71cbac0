#include "pictures/codecs/gem.h"

#include <gmock/gmock.h>

#include "base/run_time_error.h"
#include "gallery/encoders/gem_encoder.h"
#include "pictures/support/byte_writer.h"
#include "pictures/support/colours.h"
#include "pictures/support/patterns.h"

namespace lumidex::gem {
namespace {

using testing::ElementsAre;

using argb::black, argb::white, argb::red, argb::green;

struct Header {
  unsigned words = 8, planes = 1, patternBytes = 2, width = 8, height = 1;
};

ByteWriter Start(const Header& header) {
  ByteWriter file;
  file.U16Be(1).U16Be(header.words).U16Be(header.planes).U16Be(header.patternBytes).U16Be(85).U16Be(85);
  file.U16Be(header.width).U16Be(header.height);
  return file;
}

std::vector<std::uint32_t> Decoded(const ByteWriter& file) {
  return WordsOf(DecodeBytes(file.Bytes(), ".img"));
}

// One row of eight pixels whose values are 0 to 7 or 8 to 15, in up to four planes.
ByteWriter& AddCountingRow(ByteWriter& file, unsigned planes, bool upper = false) {
  const std::array<unsigned, 4> rows{0x55, 0x33, 0x0F, upper ? 0xFFU : 0U};
  for (unsigned plane = 0; plane < planes; ++plane) file.Add({0x80, 1, rows[plane]});
  return file;
}

TEST(Gem, What_was_encoded_comes_back) {
  for (const int width : {1, 8, 70, 2000}) {
    const IndexedPicture picture = Stripes({width, 46}, BlackAndWhite());
    const auto decoder = OpenBytes(EncodeGem(picture), ".gem");
    EXPECT_EQ(decoder->Facts().size, picture.size);
    EXPECT_EQ(decoder->Facts().bitsPerPixel, 1);
    EXPECT_EQ(WordsOf(decoder->Decode({})), WordsOf(Expand(picture))) << width;
  }
}

TEST(Gem, What_was_encoded_with_a_palette_comes_back) {
  for (const auto& [colours, bits] : {std::pair{2, 1}, {4, 2}, {8, 4}, {16, 4}, {40, 8}, {256, 8}}) {
    const IndexedPicture picture = Stripes({333, 46}, DistinctColours(colours));
    const auto decoder = OpenBytes(EncodeXimg(picture), "");
    EXPECT_EQ(decoder->Facts().bitsPerPixel, bits);
    EXPECT_EQ(WordsOf(decoder->Decode({})), WordsOf(Expand(picture))) << colours;
  }
}

TEST(Gem, Every_kind_of_run_fills_a_row) {
  auto file = Start({.width = 56});
  file.U8(0x01).U8(0x81).Add({0, 2, 0xF0, 0x0F}).Add({0x80, 1, 0xAA});
  const auto row = Decoded(file);
  const auto byteAt = [&row](std::size_t at) {
    unsigned bits = 0;
    for (std::size_t i = 0; i < 8; ++i) bits = bits << 1 | (row[at * 8 + i] == black ? 1U : 0U);
    return bits;
  };
  EXPECT_THAT((std::array{byteAt(0), byteAt(1), byteAt(2), byteAt(3), byteAt(4), byteAt(5), byteAt(6)}),
              ElementsAre(0x00, 0xFF, 0xF0, 0x0F, 0xF0, 0x0F, 0xAA));
}

TEST(Gem, A_literal_count_of_0_means_256) {
  auto file = Start({.width = 2048});
  file.U8(0x80).U8(0).Fill(256, 0xFF);
  EXPECT_EQ(Decoded(file), std::vector<std::uint32_t>(2048, black));
}

TEST(Gem, A_row_can_be_repeated) {
  auto file = Start({.height = 4});
  file.Add({0, 0, 0xFF, 3, 0x81, 0x01});
  const Pixels pixels = DecodeBytes(file.Bytes(), ".img");
  EXPECT_EQ(pixels.Row(0)[0], black);
  EXPECT_EQ(pixels.Row(2)[7], black);
  EXPECT_EQ(pixels.Row(3)[0], white);
}

TEST(Gem, Repeating_stops_at_the_last_row) {
  auto file = Start({.height = 2});
  file.Add({0, 0, 0xFF, 255, 0x81});
  EXPECT_EQ(Decoded(file), std::vector<std::uint32_t>(16, black));
}

TEST(Gem, A_skip_keeps_what_the_row_above_had) {
  auto file = Start({.width = 24, .height = 2});
  file.Add({0x83}).Add({0x01, 0, 0, 0, 0x01});
  const Pixels pixels = DecodeBytes(file.Bytes(), ".img");
  EXPECT_EQ(pixels.Row(1)[0], white);
  EXPECT_EQ(pixels.Row(1)[8], black);
  EXPECT_EQ(pixels.Row(1)[16], white);
}

TEST(Gem, Runs_stop_at_the_end_of_the_row) {
  auto file = Start({.height = 2});
  file.U8(0xFF).Add({0x80, 3, 0xF0, 1, 1});
  const Pixels pixels = DecodeBytes(file.Bytes(), ".img");
  EXPECT_EQ(pixels.Row(0)[7], black);
  EXPECT_THAT(RowOf(pixels, 1), ElementsAre(black, black, black, black, white, white, white, white));
}

TEST(Gem, Two_planes_without_a_palette_are_white_red_green_black) {
  auto file = Start({.planes = 2});
  EXPECT_THAT(Decoded(AddCountingRow(file, 2)),
              ElementsAre(white, red, green, black, white, red, green, black));
}

TEST(Gem, Three_planes_without_a_palette_end_in_black) {
  auto file = Start({.planes = 3});
  const auto decoder = OpenBytes(AddCountingRow(file, 3).Bytes(), ".img");
  EXPECT_EQ(decoder->Facts().bitsPerPixel, 4);
  EXPECT_THAT(WordsOf(decoder->Decode({})),
              ElementsAre(white, red, green, 0xFFFFFF00, 0xFF0000FF, 0xFFFF00FF, 0xFF00FFFF, black));
}

TEST(Gem, Four_planes_without_a_palette_have_the_sixteen_screen_colours) {
  auto file = Start({.planes = 4});
  EXPECT_THAT(
      Decoded(AddCountingRow(file, 4, true)),
      ElementsAre(0xFF555555, 0xFFAE0000, 0xFF00AE00, 0xFFAEAE00, 0xFF0000AE, 0xFFAE00AE, 0xFF00AEAE, black));
}

TEST(Gem, Eight_planes_without_a_palette_are_greys_with_their_bits_in_reverse) {
  auto file = Start({.planes = 8});
  file.Add({0x80, 1, 0x40});  // the second pixel has only the lowest bit set
  file.Fill(7, 0x01);
  const auto row = Decoded(file);
  EXPECT_EQ(row[0], white);
  EXPECT_EQ(row[1], 0xFF7F7F7F);
}

TEST(Gem, Palettes_of_cyan_magenta_and_yellow_are_inverted) {
  auto file = Start({.words = 17});
  file.Text("XIMG").U16Be(1).U16Be(0).U16Be(1000).U16Be(1000).Fill(6).U8(0x01);
  EXPECT_EQ(Decoded(file)[0], red);
}

TEST(Gem, Colours_of_three_bits_stand_at_the_end_of_two_extended_headers) {
  auto tagged = Start({.words = 27, .planes = 4});
  tagged.Text("STTT").U16Be(16).U16Be(0x0777).U16Be(0x0700).Fill(28);
  EXPECT_THAT(std::vector(Decoded(AddCountingRow(tagged, 4))), testing::Contains(red).Times(1));
  auto numbered = Start({.words = 25, .planes = 4});
  numbered.U16Be(0x0080).U16Be(0x0777).U16Be(0x0070).Fill(28);
  EXPECT_EQ(Decoded(AddCountingRow(numbered, 4))[1], green);
}

TEST(Gem, True_colour_is_read_in_rows_of_whole_pixels) {
  auto deep = Start({.words = 11, .planes = 24, .patternBytes = 3, .width = 3});
  deep.Text("XIMG").U16Be(0).Add({0, 2, 0xFF, 0, 0}).Add({0x80, 3, 0, 0xFF, 0});
  EXPECT_THAT(Decoded(deep), ElementsAre(red, red, green));
  auto high = Start({.words = 11, .planes = 16, .width = 2});
  high.Text("XIMG").U16Be(0).Add({0x80, 4, 0xF8, 0x00, 0x07, 0xE0});
  EXPECT_THAT(Decoded(high), ElementsAre(red, green));
}

TEST(Gem, A_header_of_nine_words_counts_pixels_with_blue_first) {
  auto file = Start({.words = 9, .planes = 1, .patternBytes = 3, .width = 4});
  file.U16Be(3).U8(0x82).Add({0x80, 1, 0, 0, 0xFF}).Add({0, 1, 0, 0xFF, 0});
  const auto decoder = OpenBytes(file.Bytes(), ".img");
  EXPECT_EQ(decoder->Facts().bitsPerPixel, 24);
  EXPECT_THAT(WordsOf(decoder->Decode({})), ElementsAre(white, white, red, green));
}

TEST(Gem, What_a_cut_file_lacks_is_white) {
  auto file = Start({.planes = 2, .width = 16, .height = 2});
  file.Add({0x82}).Add({0x81});  // half of the first row's second plane
  const Pixels pixels = DecodeBytes(file.Bytes(), ".img");
  EXPECT_EQ(pixels.Row(0)[7], black);
  EXPECT_EQ(pixels.Row(0)[8], white);
  EXPECT_EQ(pixels.Row(1)[0], white);
}

TEST(Gem, A_row_that_would_be_repeated_but_is_cut_off_is_white) {
  auto file = Start({.height = 2});
  file.Add({0x80, 1, 0xFF}).Add({0, 0, 0xFF});
  const auto words = Decoded(file);
  EXPECT_EQ(words[0], black);
  EXPECT_EQ(words[8], white);
}

TEST(Gem, A_pattern_longer_than_the_file_is_cut) {
  auto file = Start({.patternBytes = 60000, .width = 16});
  file.Add({0, 255, 0xF0});
  EXPECT_EQ(Decoded(file)[0], black);
}

TEST(Gem, A_header_longer_than_the_file_leaves_the_picture_white) {
  auto file = Start({.words = 779, .planes = 8});
  file.Text("XIMG").Fill(20);
  EXPECT_EQ(Decoded(file), std::vector<std::uint32_t>(8, white));
}

TEST(Gem, Five_to_seven_planes_without_a_palette_are_greys_from_white_to_black) {
  for (const unsigned planes : {5U, 6U, 7U}) {
    auto file = Start({.planes = planes});
    for (unsigned plane = 0; plane < planes; ++plane) file.Add({0x80, 1, 0x80});
    const auto decoder = OpenBytes(file.Bytes(), ".img");
    EXPECT_EQ(decoder->Facts().bitsPerPixel, 8);
    EXPECT_THAT(WordsOf(decoder->Decode({})),
                ElementsAre(black, white, white, white, white, white, white, white));
  }
}

TEST(Gem, Fifteen_planes_hold_five_bits_a_component) {
  auto file = Start({.words = 9, .planes = 15, .width = 2});
  file.U16Be(0).Add({0x80, 4, 0x7C, 0x00, 0x03, 0xE0});
  const auto decoder = OpenBytes(file.Bytes(), ".img");
  EXPECT_EQ(decoder->Facts().bitsPerPixel, 16);
  EXPECT_THAT(WordsOf(decoder->Decode({})), ElementsAre(red, green));
}

TEST(Gem, Thirty_two_planes_leave_the_first_byte_out) {
  auto file = Start({.words = 11, .planes = 32, .width = 1});
  file.Text("XIMG").U16Be(0).Add({0x80, 4, 9, 0xFF, 0, 0});
  EXPECT_THAT(Decoded(file), ElementsAre(red));
}

TEST(Gem, Drawings_of_the_same_name_are_refused) {
  ByteWriter drawing;
  drawing.U16Be(0xFFFF).U16Le(15).Fill(40);
  try {
    OpenBytes(drawing.Bytes(), ".gem");
    FAIL();
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::InvalidPicture);
    EXPECT_THAT(error.what(), testing::HasSubstr("metafile"));
  }
}

TEST(Gem, Headers_that_can_not_be_are_refused) {
  EXPECT_THROW(OpenBytes(Start({.planes = 9}).Fill(9).Bytes(), ".img"), RunTimeError);
  EXPECT_THROW(OpenBytes(Start({.words = 7}).Fill(9).Bytes(), ".img"), RunTimeError);
  EXPECT_THROW(OpenBytes(Start({.width = 0}).Fill(9).Bytes(), ".img"), RunTimeError);
  EXPECT_THROW(OpenBytes(Start({.width = 40000}).Fill(9).Bytes(), ".img"), RunTimeError);
  EXPECT_THROW(OpenBytes(Start({.width = 30000, .height = 30000}).Fill(9).Bytes(), ".img"), RunTimeError);
}

}  // namespace
}  // namespace lumidex::gem
