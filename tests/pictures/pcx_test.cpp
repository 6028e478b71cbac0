#include "pictures/codecs/pcx.h"

#include <gmock/gmock.h>

#include "base/run_time_error.h"
#include "gallery/encoders/pcx_encoder.h"
#include "pictures/palettes.h"
#include "pictures/support/byte_writer.h"
#include "pictures/support/colours.h"
#include "pictures/support/patterns.h"

namespace lumidex::pcx {
namespace {

using testing::ElementsAre;

using argb::white;

struct Header {
  unsigned version = 5, encoding = 1, bits = 8;
  unsigned left = 0, top = 0, right = 1, bottom = 0;
  std::vector<std::uint8_t> colours{};
  unsigned planes = 1, planeBytes = 2, kind = 1;
};

ByteWriter Start(const Header& header) {
  ByteWriter file;
  file.U8(0x0A).U8(header.version).U8(header.encoding).U8(header.bits);
  file.U16Le(header.left).U16Le(header.top).U16Le(header.right).U16Le(header.bottom).U32Le(0);
  file.Add(header.colours).Zeros(48 - header.colours.size());
  file.U8(0).U8(header.planes).U16Le(header.planeBytes).U16Le(header.kind);
  return file.PadTo(128);
}

std::vector<std::uint32_t> WordsIn(const ByteWriter& file) {
  return WordsOf(DecodeBytes(file.Bytes()));
}

TEST(Pcx, True_colour_comes_back) {
  for (const auto format : {PixelFormat::Rgb, PixelFormat::Argb}) {
    const Pixels pattern = ColourPattern({37, 23}, format);
    const auto file = EncodePcx(pattern);
    EXPECT_EQ(OpenBytes(file)->Facts().bitsPerPixel, format == PixelFormat::Rgb ? 24 : 32);
    EXPECT_EQ(WordsOf(DecodeBytes(file)), WordsOf(pattern));
  }
}

TEST(Pcx, Palettes_of_every_size_come_back) {
  for (const auto& [colours, depth] : {std::pair{2, 1}, {16, 4}, {256, 8}}) {
    const IndexedPicture picture =
        Stripes({301, 40}, colours == 2 ? BlackAndWhite() : DistinctColours(colours));
    const auto file = EncodePcx(picture);
    EXPECT_EQ(OpenBytes(file)->Facts().bitsPerPixel, depth);
    EXPECT_EQ(WordsOf(DecodeBytes(file)), WordsOf(Expand(picture))) << colours;
  }
}

TEST(Pcx, The_window_need_not_begin_at_0) {
  auto file = Start({.left = 100, .top = 50, .right = 101, .bottom = 50});
  file.Add({1, 2});
  EXPECT_EQ(OpenBytes(file.Bytes())->Facts().size, (Size{2, 1}));
}

TEST(Pcx, A_run_may_cross_the_end_of_a_row) {
  auto file = Start({.bottom = 1, .kind = 2});
  file.Add({0xC3, 7, 9});
  EXPECT_THAT(WordsIn(file), ElementsAre(0xFF070707U, 0xFF070707U, 0xFF070707U, 0xFF090909U));
}

TEST(Pcx, A_run_of_0_gives_nothing) {
  auto file = Start({.kind = 2});
  file.Add({0xC0, 7, 8, 9});
  EXPECT_THAT(WordsIn(file), ElementsAre(0xFF080808U, 0xFF090909U));
}

TEST(Pcx, Encoding_0_has_no_runs) {
  auto file = Start({.encoding = 0, .kind = 2});
  file.Add({0xC3, 0xFF});
  EXPECT_THAT(WordsIn(file), ElementsAre(0xFFC3C3C3U, 0xFFFFFFFFU));
}

TEST(Pcx, Planes_give_the_bits_of_an_index_the_lowest_first) {
  auto file = Start({.bits = 1, .right = 3, .colours = {0, 0, 0, 1, 1, 1, 2, 2, 2, 3, 3, 3}, .planes = 2});
  file.Add({0x50, 0, 0x30, 0});
  EXPECT_EQ(OpenBytes(file.Bytes())->Facts().bitsPerPixel, 2);
  EXPECT_THAT(WordsIn(file), ElementsAre(0xFF000000U, 0xFF010101U, 0xFF020202U, 0xFF030303U));
}

TEST(Pcx, Three_planes_are_told_as_4_bits) {
  EXPECT_EQ(OpenBytes(Start({.bits = 1, .planes = 3}).Bytes())->Facts().bitsPerPixel, 4);
}

TEST(Pcx, Four_bits_may_be_packed) {
  auto file = Start({.bits = 4, .colours = {9, 9, 9, 1, 1, 1, 2, 2, 2}});
  file.Add({0x12, 0});
  EXPECT_THAT(WordsIn(file), ElementsAre(0xFF010101U, 0xFF020202U));
}

TEST(Pcx, Versions_without_a_palette_have_the_colours_of_the_EGA) {
  for (const unsigned version : {0U, 3U}) {
    auto file = Start({.version = version, .bits = 4, .colours = {1, 2, 3, 4, 5, 6}});
    file.Add({0x1E, 0});
    EXPECT_THAT(WordsIn(file), ElementsAre(ega16[1], ega16[14]));
  }
}

TEST(Pcx, Two_colours_are_black_and_white_whatever_the_header_says) {
  auto file = Start({.bits = 1, .colours = {255, 0, 0, 0, 255, 0}});
  file.Add({0x40, 0});
  EXPECT_THAT(WordsIn(file), ElementsAre(0xFF000000U, white));
}

TEST(Pcx, CGA_settings_of_old_versions_stand_in_bits) {
  // Background 1; set 1, bright.
  auto file = Start({.version = 2, .bits = 2, .right = 3, .colours = {0x10, 0, 0, 0x60}});
  file.Add({0x1B, 0});
  EXPECT_THAT(WordsIn(file), ElementsAre(ega16[1], ega16[11], ega16[13], ega16[15]));
}

TEST(Pcx, CGA_settings_of_version_5_are_told_by_the_second_entry) {
  const auto decode = [](std::vector<std::uint8_t> colours) {
    auto file = Start({.bits = 2, .right = 3, .colours = std::move(colours)});
    file.Add({0x1B, 0});
    return WordsIn(file);
  };
  EXPECT_THAT(decode({0, 0, 0, 0, 255, 0}), ElementsAre(ega16[0], ega16[10], ega16[12], ega16[14]));
  EXPECT_THAT(decode({0, 0, 0, 0, 100, 100}), ElementsAre(ega16[0], ega16[3], ega16[5], ega16[7]));
}

TEST(Pcx, Four_colours_of_version_5_are_taken_when_there_are_more_than_settings) {
  auto file = Start({.bits = 2, .right = 3, .colours = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}});
  file.Add({0x1B, 0});
  EXPECT_THAT(WordsIn(file), ElementsAre(0xFF010203U, 0xFF040506U, 0xFF070809U, 0xFF0A0B0CU));
}

TEST(Pcx, Colours_behind_the_rows_need_no_mark) {
  auto file = Start({});
  file.Add({1, 2});
  for (unsigned i = 0; i < 256; ++i) file.Add({i, 0, 255 - i});
  EXPECT_THAT(WordsIn(file), ElementsAre(0xFF0100FEU, 0xFF0200FDU));
}

TEST(Pcx, Something_may_stand_behind_the_colours) {
  auto file = Start({});
  file.Add({1, 2, 0x0C});
  for (unsigned i = 0; i < 256; ++i) file.Add({i, 0, 255 - i});
  file.Fill(128, 0x1A);
  EXPECT_THAT(WordsIn(file), ElementsAre(0xFF0100FEU, 0xFF0200FDU));
}

TEST(Pcx, Few_colours_may_stand_in_the_header_alone) {
  auto file = Start({.colours = {0, 0, 0, 10, 20, 30, 40, 50, 60}});
  file.Add({1, 2});
  EXPECT_THAT(WordsIn(file), ElementsAre(0xFF0A141EU, 0xFF28323CU));
}

TEST(Pcx, Without_any_colours_indices_are_greys) {
  auto file = Start({});
  file.Add({1, 90});
  EXPECT_THAT(WordsIn(file), ElementsAre(0xFF010101U, 0xFF5A5A5AU));
}

TEST(Pcx, Rows_are_as_wide_as_the_header_says_or_as_needed) {
  auto wide = Start({.bottom = 1, .planeBytes = 4, .kind = 2});
  wide.Add({1, 2, 99, 99, 3, 4});
  EXPECT_THAT(WordsIn(wide), ElementsAre(0xFF010101U, 0xFF020202U, 0xFF030303U, 0xFF040404U));
  auto narrow = Start({.bottom = 1, .planeBytes = 1, .kind = 2});
  narrow.Add({1, 2, 3, 4});
  EXPECT_THAT(WordsIn(narrow), ElementsAre(0xFF010101U, 0xFF020202U, 0xFF030303U, 0xFF040404U));
}

TEST(Pcx, Rows_behind_a_cut_are_blank) {
  auto file = Start({.bottom = 1, .kind = 2});
  file.Add({1, 2, 3});
  EXPECT_THAT(WordsIn(file), ElementsAre(0xFF010101U, 0xFF020202U, blankPixel, blankPixel));
}

TEST(Pcx, A_pixel_that_looks_like_the_mark_of_the_colours_does_not_end_a_cut_file) {
  auto file = Start({.right = 2, .bottom = 499, .planeBytes = 3});
  file.Fill(1200, 0x0C);
  const Pixels pixels = DecodeBytes(file.Bytes());
  EXPECT_NE(pixels.Row(399)[0], blankPixel);
  EXPECT_EQ(pixels.Row(400)[0], blankPixel);
}

TEST(Pcx, Fewer_rows_than_the_header_says_end_at_the_colours) {
  auto file = Start({.bottom = 2});
  file.Add({1, 2, 0x0C}).Fill(768, 0x80);
  EXPECT_THAT(WordsIn(file),
              ElementsAre(0xFF808080U, 0xFF808080U, blankPixel, blankPixel, blankPixel, blankPixel));
}

TEST(Pcx, A_bad_header_is_refused) {
  const auto open = [](const Header& header) { OpenBytes(Start(header).Bytes(), ".pcx"); };
  EXPECT_THROW(open({.encoding = 2}), RunTimeError);
  EXPECT_THROW(open({.bits = 3}), RunTimeError);
  EXPECT_THROW(open({.bits = 4, .planes = 4}), RunTimeError);
  EXPECT_THROW(open({.left = 3, .right = 1}), RunTimeError);
  EXPECT_THROW(open({.right = 65535}), RunTimeError);
  EXPECT_THROW(OpenBytes({0x0A, 5, 1, 8}, ".pcx"), RunTimeError);
}

}  // namespace
}  // namespace lumidex::pcx
