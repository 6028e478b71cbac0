#include "pictures/codecs/wpg.h"

#include <gmock/gmock.h>

#include "base/run_time_error.h"
#include "gallery/encoders/wpg_encoder.h"
#include "pictures/palettes.h"
#include "pictures/support/byte_writer.h"
#include "pictures/support/colours.h"
#include "pictures/support/patterns.h"

namespace lumidex::wpg {
namespace {

using testing::ElementsAre;

using argb::red, argb::green, argb::black, argb::white;

ByteWriter Start(unsigned version, unsigned key = 0, unsigned kind = 0x16) {
  ByteWriter file;
  file.U8(0xFF).Text("WPC").U32Le(16).U8(1).U8(kind).U8(version).U8(0).U16Le(key).U16Le(0);
  return file;
}

ByteWriter Record1(ByteWriter file, unsigned type, const ByteWriter& content) {
  return file.U8(type).U8(static_cast<unsigned>(content.Size())).Add(content.Bytes());
}

ByteWriter Record2(ByteWriter file, unsigned type, const ByteWriter& content) {
  return file.U8(4).U8(type).U8(0).U8(static_cast<unsigned>(content.Size())).Add(content.Bytes());
}

ByteWriter Bitmap1(unsigned width, unsigned height, unsigned depth,
                   std::initializer_list<std::uint32_t> rows) {
  ByteWriter bitmap;
  return bitmap.U16Le(width).U16Le(height).U16Le(depth).U16Le(75).U16Le(75).Add(rows);
}

struct Form2 {
  unsigned width = 1, height = 1, depthCode = 4, compression = 1;
};

ByteWriter Bitmap2(const Form2& form, std::initializer_list<std::uint32_t> rows) {
  ByteWriter bitmap;
  return bitmap.U16Le(form.width).U16Le(form.height).U8(form.depthCode).U8(form.compression).Add(rows);
}

// Entry i is grey i, so that the pixels tell the indices.
ByteWriter Greys2() {
  ByteWriter map;
  map.U16Le(0).U16Le(60);
  for (unsigned i = 0; i < 60; ++i) map.Add({i, i, i, 0});
  return map;
}

std::vector<std::uint32_t> WordsIn(const ByteWriter& file) {
  return WordsOf(DecodeBytes(file.Bytes()));
}

// The indices of an 8-bit bitmap of version 2.
std::vector<unsigned> Indices2(const Form2& form, std::initializer_list<std::uint32_t> rows) {
  std::vector<unsigned> indices;
  const auto file = Record2(Record2(Start(2), 0x0C, Greys2()), 0x0E, Bitmap2(form, rows));
  for (const std::uint32_t word : WordsIn(file)) indices.push_back(word & 255);
  return indices;
}

TEST(Wpg, Pictures_come_back) {
  for (const auto& [colours, depth] : {std::pair{2, 1}, {4, 2}, {16, 4}, {256, 8}}) {
    const IndexedPicture picture =
        Stripes({301, 40}, colours == 2 ? BlackAndWhite() : DistinctColours(colours));
    const auto file = EncodeWpg(picture);
    EXPECT_EQ(OpenBytes(file)->Facts().bitsPerPixel, depth);
    EXPECT_EQ(WordsOf(DecodeBytes(file)), WordsOf(Expand(picture))) << colours;
  }
}

TEST(Wpg, Records_far_behind_the_head_are_found) {
  auto file = Start(1);
  file.U8(0x05).U8(0xFF).U16Le(30000).Zeros(30000);
  file = Record1(file, 0x0B, Bitmap1(8, 1, 1, {1, 0xC0}));
  EXPECT_EQ(OpenBytes(file.Bytes())->Facts().size, (Size{8, 1}));
  EXPECT_EQ(DecodeBytes(file.Bytes()).Row(0)[1], white);
}

TEST(Wpg, A_placed_bitmap_has_ten_bytes_more) {
  ByteWriter bitmap;
  bitmap.Zeros(10).Add(Bitmap1(2, 1, 8, {2, 1, 2}).Bytes());
  ByteWriter map;
  map.U16Le(1).U16Le(2).Add({255, 0, 0, 0, 255, 0});
  EXPECT_THAT(WordsIn(Record1(Record1(Start(1), 0x0E, map), 0x14, bitmap)), ElementsAre(red, green));
}

TEST(Wpg, The_first_bitmap_with_a_size_is_shown) {
  auto file = Record1(Start(1), 0x0B, Bitmap1(0, 0, 1, {}));
  file = Record1(file, 0x0B, Bitmap1(1, 1, 1, {1, 0x80}));
  file = Record1(file, 0x0B, Bitmap1(9, 9, 1, {1, 0x80}));
  EXPECT_EQ(OpenBytes(file.Bytes())->Facts().size, (Size{1, 1}));
}

TEST(Wpg, Version_1_shows_1_bit_black_and_white_whatever_the_map_says) {
  ByteWriter map;
  map.U16Le(0).U16Le(2).Add({255, 0, 0, 0, 255, 0});
  EXPECT_THAT(WordsIn(Record1(Record1(Start(1), 0x0E, map), 0x0B, Bitmap1(2, 1, 1, {1, 0x40}))),
              ElementsAre(black, white));
}

TEST(Wpg, Without_a_map_there_are_default_colours) {
  EXPECT_THAT(WordsIn(Record1(Start(1), 0x0B, Bitmap1(4, 1, 2, {1, 0x1B}))),
              ElementsAre(black, ega16[11], ega16[13], ega16[15]));
  EXPECT_THAT(WordsIn(Record1(Start(1), 0x0B, Bitmap1(2, 1, 4, {1, 0x4E}))),
              ElementsAre(ega16[4], ega16[14]));
}

TEST(Wpg, Version_1_code_has_runs_full_bytes_literals_and_repeated_rows) {
  const auto file = Record1(Start(1), 0x0B, Bitmap1(8, 6, 1, {0x81, 0x0F, 0x80, 1, 1, 0x55, 0, 3}));
  const Pixels pixels = DecodeBytes(file.Bytes());
  EXPECT_THAT(RowOf(pixels, 0), ElementsAre(black, black, black, black, white, white, white, white));
  EXPECT_THAT(RowOf(pixels, 1), testing::Each(white));
  for (const int y : {2, 3, 4, 5})
    EXPECT_THAT(RowOf(pixels, y), ElementsAre(black, white, black, white, black, white, black, white)) << y;
}

TEST(Wpg, Version_1_runs_may_cross_rows_but_rows_repeat_only_whole) {
  const auto crossing = Record1(Start(1), 0x0B, Bitmap1(8, 3, 1, {0x83, 0xFF}));
  EXPECT_THAT(WordsIn(crossing), testing::Each(white));
  const auto broken = Record1(Start(1), 0x0B, Bitmap1(16, 2, 1, {0x82, 0, 1, 7, 0, 1}));
  EXPECT_THAT(RowOf(DecodeBytes(broken.Bytes()), 0), testing::Each(black));
  EXPECT_THAT(RowOf(DecodeBytes(broken.Bytes()), 1), testing::Each(blankPixel));
}

TEST(Wpg, Version_2_code_has_runs_and_literals) {
  EXPECT_THAT(Indices2({.width = 8}, {0x81, 5, 0x02, 1, 2, 3, 0x7F, 0, 0xFD, 1}),
              ElementsAre(5, 5, 1, 2, 3, 0, 0, 0));
}

TEST(Wpg, Version_2_elements_may_have_several_bytes) {
  EXPECT_THAT(Indices2({.width = 10}, {0x7D, 2, 0x81, 5, 6, 0x00, 7, 8, 0xFD, 1}),
              ElementsAre(5, 6, 5, 6, 7, 8, 7, 8, 7, 8));
}

TEST(Wpg, Version_2_rows_repeat_or_differ_from_the_one_before) {
  EXPECT_THAT(Indices2({.width = 2, .height = 4}, {0x01, 1, 2, 0xFE, 0, 0x7E, 0x01, 3, 0, 0x81, 9}),
              ElementsAre(1, 2, 1, 2, 2, 2, 9, 9));
}

TEST(Wpg, Version_2_may_be_plain_and_true_colour) {
  EXPECT_THAT(Indices2({.width = 2, .compression = 0}, {7, 8}), ElementsAre(7, 8));
  const auto file = Record2(Start(2), 0x0E, Bitmap2({.depthCode = 8, .compression = 0}, {255, 0, 0}));
  EXPECT_EQ(OpenBytes(file.Bytes())->Facts().bitsPerPixel, 24);
  EXPECT_THAT(WordsIn(file), ElementsAre(red));
}

TEST(Wpg, Lengths_of_records_take_one_three_or_five_bytes) {
  const ByteWriter bitmap = Bitmap1(1, 1, 1, {1, 0x80});
  auto medium = Start(1).U8(0x05).U8(0xFF).U16Le(300).Fill(300);
  EXPECT_THAT(WordsIn(Record1(medium, 0x0B, bitmap)), ElementsAre(white));
  auto longest = Start(1).U8(0x05).U8(0xFF).U16Le(0x8001).U16Le(2).Fill(0x10002);
  EXPECT_THAT(WordsIn(Record1(longest, 0x0B, bitmap)), ElementsAre(white));
}

TEST(Wpg, True_colour_may_be_run_length_coded) {
  EXPECT_THAT(WordsIn(Record1(Start(1), 0x0B, Bitmap1(1, 1, 24, {3, 255, 0, 0}))), ElementsAre(red));
  const Form2 form{.depthCode = 8, .compression = 1};
  EXPECT_THAT(WordsIn(Record2(Start(2), 0x0E, Bitmap2(form, {2, 0, 255, 0}))), ElementsAre(green));
}

TEST(Wpg, A_map_shorter_than_it_says_gives_the_colours_it_has) {
  ByteWriter map;
  map.U16Le(0).U16Le(256).Add({255, 0, 0, 0, 255, 0});
  auto file = Record1(Record1(Start(1), 0x0E, map), 0x0B, Bitmap1(4, 1, 2, {1, 0x10}));
  EXPECT_THAT(WordsIn(file), ElementsAre(red, green, red, red));
}

TEST(Wpg, The_place_of_the_first_record_may_be_wrong) {
  for (const unsigned place : {0U, 3U, 60000U}) {
    auto bytes = Record1(Start(1), 0x0B, Bitmap1(1, 1, 1, {1, 0x80})).Take();
    bytes[4] = static_cast<std::uint8_t>(place);
    bytes[5] = static_cast<std::uint8_t>(place >> 8);
    EXPECT_THAT(WordsOf(DecodeBytes(bytes)), ElementsAre(white));
  }
}

TEST(Wpg, The_records_that_begin_and_end_a_drawing_may_be_missing) {
  EXPECT_THAT(WordsIn(Record1(Start(1), 0x0B, Bitmap1(1, 1, 1, {1, 0x80}))), ElementsAre(white));
}

TEST(Wpg, Rows_behind_a_cut_are_blank) {
  const auto file = Record1(Start(1), 0x0B, Bitmap1(8, 3, 1, {1, 0}));
  EXPECT_THAT(RowOf(DecodeBytes(file.Bytes()), 0), testing::Each(black));
  EXPECT_THAT(RowOf(DecodeBytes(file.Bytes()), 2), testing::Each(blankPixel));
}

TEST(Wpg, What_holds_no_readable_bitmap_is_refused) {
  const ByteWriter good = Bitmap1(8, 1, 1, {1, 0});
  EXPECT_NO_THROW(OpenBytes(Record1(Start(1), 0x0B, good).Bytes()));
  EXPECT_THROW(OpenBytes(Record1(Start(1, 0, 0x0A), 0x0B, good).Bytes()), RunTimeError);
  EXPECT_THROW(OpenBytes(Record1(Start(1, 99), 0x0B, good).Bytes()), RunTimeError);
  EXPECT_THROW(OpenBytes(Record1(Start(3), 0x0B, good).Bytes()), RunTimeError);
  EXPECT_THROW(OpenBytes(Record1(Start(1), 0x05, good).Bytes()), RunTimeError);
  EXPECT_THROW(OpenBytes(Record1(Record1(Start(1), 0x10, {}), 0x0B, good).Bytes()), RunTimeError);
  EXPECT_THROW(OpenBytes(Record1(Start(1), 0x0B, Bitmap1(8, 1, 3, {1, 0})).Bytes()), RunTimeError);
  EXPECT_THROW(OpenBytes(Record1(Start(1), 0x0B, Bitmap1(65535, 65535, 8, {})).Bytes()), RunTimeError);
  EXPECT_THROW(OpenBytes(Record2(Start(2), 0x0E, Bitmap2({.compression = 2}, {0})).Bytes()), RunTimeError);
  EXPECT_THROW(OpenBytes(Record2(Start(2), 0x0E, Bitmap2({.depthCode = 5}, {0})).Bytes()), RunTimeError);
  EXPECT_THROW(OpenBytes(Start(1).Bytes()), RunTimeError);
}

}  // namespace
}  // namespace lumidex::wpg
