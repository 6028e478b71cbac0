#include "pictures/codecs/pic.h"

#include <gmock/gmock.h>

#include "base/run_time_error.h"
#include "gallery/encoders/pic_encoder.h"
#include "pictures/support/byte_writer.h"
#include "pictures/support/colours.h"
#include "pictures/support/patterns.h"

namespace lumidex::pic {
namespace {

using testing::ElementsAre;

using argb::black, argb::white;

struct Header {
  unsigned width = 4, height = 1, layout = 8, flag = 0xFF, paletteKind = 0, videoMode = 'A';
};

// A header with a palette, up to the number of blocks.
ByteWriter Start(const Header& header, const std::vector<std::uint8_t>& palette = {}) {
  ByteWriter file;
  file.U16Le(0x1234).U16Le(header.width).U16Le(header.height).U16Le(0).U16Le(0);
  file.U8(header.layout).U8(header.flag).U8(header.videoMode).U16Le(header.paletteKind);
  file.U16Le(static_cast<std::uint32_t>(palette.size())).Append(palette);
  return file;
}

std::vector<std::uint32_t> Decoded(const ByteWriter& file) {
  return WordsOf(DecodeBytes(file.Bytes(), ".pic"));
}

TEST(Pic, What_was_encoded_comes_back) {
  for (const int width : {1, 9, 72, 700}) {
    const IndexedPicture two = Stripes({width, 46}, BlackAndWhite());
    const auto decoder = OpenBytes(EncodePic(two));
    EXPECT_EQ(decoder->Facts().size, two.size);
    EXPECT_EQ(decoder->Facts().bitsPerPixel, 1);
    EXPECT_EQ(WordsOf(decoder->Decode({})), WordsOf(Expand(two)));
    const Colours steps{black, 0xFF555555, 0xFFAAAAAA, white, 0xFFFF0000};  // exact in six bits
    const IndexedPicture sixteen = Stripes({width, 46}, steps);
    EXPECT_EQ(OpenBytes(EncodePic(sixteen))->Facts().bitsPerPixel, 4);
    EXPECT_EQ(WordsOf(DecodeBytes(EncodePic(sixteen))), WordsOf(Expand(sixteen)));
    Colours many(17, 0xFF00FF55);
    many[3] = white;
    const IndexedPicture bytes = Stripes({width, 146}, many);
    EXPECT_EQ(OpenBytes(EncodePic(bytes))->Facts().bitsPerPixel, 8);
    EXPECT_EQ(WordsOf(DecodeBytes(EncodePic(bytes))), WordsOf(Expand(bytes)));
  }
}

TEST(Pic, The_lowest_row_comes_first) {
  auto file = Start({.width = 1, .height = 2});
  file.U16Le(0).Add({1, 15});
  EXPECT_THAT(Decoded(file), ElementsAre(white, 0xFF0000AA));
}

TEST(Pic, Runs_have_short_and_long_counts_and_blocks_join) {
  auto file = Start({.width = 304});
  file.U16Le(2);
  file.U16Le(5 + 4).U16Le(4).U8(0x80).Add({1, 0x80, 2, 4});
  file.U16Le(5 + 6).U16Le(301).U8(0x81).Add({0x81, 0, 0x2C, 0x01, 15, 1});
  const auto row = Decoded(file);
  EXPECT_EQ(row[0], 0xFF0000AA);
  EXPECT_EQ(row[2], 0xFFAA0000);
  EXPECT_EQ(row[3], white);
  EXPECT_EQ(row[302], white);
  EXPECT_EQ(row[303], 0xFF0000AA);
}

TEST(Pic, Runs_end_with_their_block) {
  auto file = Start({.width = 4});
  file.U16Le(2);
  file.U16Le(5 + 3).U16Le(9).U8(0x80).Add({1, 0x80, 9});  // a run without its value
  file.U16Le(5 + 3).U16Le(3).U8(0x80).Add({15, 15, 15});
  EXPECT_THAT(Decoded(file), ElementsAre(0xFF0000AA, white, white, white));
}

TEST(Pic, A_block_shorter_than_its_own_header_is_empty) {
  auto file = Start({.width = 1});
  file.U16Le(2).U16Le(0).U16Le(0).U8(0x80);
  file.U16Le(6).U16Le(1).U8(0x80).U8(1);
  EXPECT_THAT(Decoded(file), ElementsAre(0xFF0000AA));
}

TEST(Pic, Planes_stand_one_behind_the_other) {
  auto file = Start({.width = 4, .layout = 0x31, .paletteKind = 0});
  file.U16Le(0).Add({0x50, 0x30, 0x00, 0xF0});
  EXPECT_THAT(Decoded(file), ElementsAre(0xFF555555, 0xFF5555FF, 0xFF55FF55, 0xFF55FFFF));
}

TEST(Pic, Four_bits_may_be_packed) {
  auto file = Start({.width = 3, .layout = 0x04});
  file.U16Le(0).Add({0x12, 0x4F});
  EXPECT_THAT(Decoded(file), ElementsAre(0xFF0000AA, 0xFF00AA00, 0xFFAA0000));
}

TEST(Pic, Cga_palettes_go_by_number_and_border) {
  const auto colours = [](std::uint8_t number, std::uint8_t border) {
    auto file = Start({.layout = 0x02, .paletteKind = 1}, {number, border});
    return Decoded(file.U16Le(0).U8(0x1B));
  };
  EXPECT_THAT(colours(0, 1), ElementsAre(0xFF0000AA, 0xFF00AAAA, 0xFFAA00AA, 0xFFAAAAAA));
  EXPECT_THAT(colours(1, 0), ElementsAre(black, 0xFF00AA00, 0xFFAA0000, 0xFFAA5500));
  EXPECT_THAT(colours(3, 0), ElementsAre(black, 0xFF55FFFF, 0xFFFF55FF, white));
}

TEST(Pic, Palettes_of_sixteen_come_as_colour_numbers_as_registers_or_as_levels) {
  const auto first = [](unsigned kind, const std::vector<std::uint8_t>& palette) {
    auto file = Start({.width = 1, .layout = 0x04, .paletteKind = kind}, palette);
    return Decoded(file.U16Le(0).U8(0))[0];
  };
  EXPECT_EQ(first(2, std::vector<std::uint8_t>(16, 4)), 0xFFAA0000);
  EXPECT_EQ(first(3, std::vector<std::uint8_t>(16, 60)), 0xFFFF5555);
  EXPECT_EQ(first(5, std::vector<std::uint8_t>(48, 32)), 0xFF828282);
  EXPECT_EQ(first(5, std::vector<std::uint8_t>(48, 200)), 0xFFC8C8C8);
}

TEST(Pic, Pictures_of_256_colours_without_a_palette_have_those_of_the_display) {
  auto file = Start({.width = 2});
  EXPECT_THAT(Decoded(file.U16Le(0).Add({32, 40})), ElementsAre(0xFF0000FF, 0xFFFF0000));
}

TEST(Pic, An_early_file_of_four_colours_has_no_palette) {
  ByteWriter file;
  file.U16Le(0x1234).U16Le(4).U16Le(1).U16Le(0).U16Le(0).U8(0x02);
  file.U16Le(0).U8(0x1B);  // raw
  EXPECT_THAT(Decoded(file), ElementsAre(black, 0xFF00AAAA, 0xFFAA0000, 0xFFAAAAAA));
}

TEST(Pic, What_a_cut_file_lacks_is_white) {
  auto file = Start({.width = 2, .height = 3});
  file.U16Le(0).Add({1, 1, 1});
  EXPECT_THAT(Decoded(file), ElementsAre(white, white, 0xFF0000AA, white, 0xFF0000AA, 0xFF0000AA));
}

TEST(Pic, Any_number_of_blocks_is_read_only_as_far_as_the_file_goes) {
  auto file = Start({.width = 1});
  file.U16Le(0xFFFF).U16Le(6).U16Le(1).U8(0x80).U8(1);
  EXPECT_THAT(Decoded(file), ElementsAre(0xFF0000AA));
}

TEST(Pic, Other_files_of_the_name_are_refused) {
  EXPECT_THROW(OpenBytes(ByteWriter().Fill(512).U16Be(0x11).Fill(40).Bytes(), ".pic"), RunTimeError);
  EXPECT_THROW(OpenBytes(ByteWriter().U32Be(0x5380F634).Fill(100).Bytes(), ".pic"), RunTimeError);
}

TEST(Pic, Text_screens_are_refused_by_name) {
  for (const unsigned mode : {'0', '1', '2', '3'}) {
    try {
      OpenBytes(Start({.videoMode = mode}).Fill(99).Bytes(), ".pic");
      FAIL();
    } catch (const RunTimeError& error) {
      EXPECT_THAT(error.what(), testing::HasSubstr("text screens"));
    }
  }
}

TEST(Pic, A_palette_longer_than_the_file_leaves_the_picture_white) {
  auto file = Start({});
  file.U16Le(0);
  std::vector<std::uint8_t> bytes = file.Take();
  bytes[15] = 0xFF;  // the length of the palette
  bytes[16] = 0xFF;
  EXPECT_THAT(WordsOf(DecodeBytes(bytes, ".pic")), ElementsAre(white, white, white, white));
}

TEST(Pic, A_last_block_that_is_short_leaves_the_rest_white) {
  auto file = Start({.height = 2});
  file.U16Le(1).U16Le(5 + 4).U16Le(8).U8(0xFF).Add({0, 0, 0, 0});
  EXPECT_THAT(Decoded(file), ElementsAre(white, white, white, white, black, black, black, black));
}

TEST(Pic, Arrangements_that_are_not_read_are_refused) {
  EXPECT_THROW(OpenBytes(Start({.layout = 0x28}).Fill(99).Bytes(), ".pic"), RunTimeError);
  EXPECT_THROW(OpenBytes(Start({.layout = 0x03}).Fill(99).Bytes(), ".pic"), RunTimeError);
  EXPECT_THROW(OpenBytes(Start({.width = 0}).Fill(99).Bytes(), ".pic"), RunTimeError);
}

}  // namespace
}  // namespace lumidex::pic
