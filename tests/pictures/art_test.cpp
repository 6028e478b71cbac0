#include "pictures/codecs/art.h"

#include <gmock/gmock.h>

#include "base/run_time_error.h"
#include "gallery/encoders/art_encoder.h"
#include "pictures/support/byte_writer.h"
#include "pictures/support/colours.h"
#include "pictures/support/patterns.h"

namespace lumidex::art {
namespace {

using testing::ElementsAre;

using argb::black, argb::white;

// A header whose corners are (left, top) and (right, bottom).
ByteWriter Start(unsigned left, unsigned right, unsigned top, unsigned bottom) {
  ByteWriter file;
  file.U16Le(left).U16Le(right).U16Le(top).U16Le(bottom);
  return file;
}

TEST(Art, Rows_are_filled_up_to_words_and_1_is_white) {
  auto file = Start(0, 3, 0, 2);
  file.Add({0xA0, 0xFF, 0x5F, 0xFF});
  EXPECT_THAT(WordsOf(DecodeBytes(file.Bytes(), ".art")),
              ElementsAre(white, black, white, black, white, black));
}

TEST(Art, What_was_encoded_comes_back) {
  for (const ArtKind kind : {ArtKind::Screen, ArtKind::Print}) {
    for (const int width : {1, 8, 15, 16, 17, 300}) {
      const IndexedPicture picture = Stripes({width, 21}, BlackAndWhite());
      const Pixels pixels = DecodeBytes(EncodeArt(picture, kind), ".art");
      EXPECT_EQ(WordsOf(pixels), WordsOf(Expand(picture))) << width;
    }
  }
}

TEST(Art, The_facts_tell_one_bit) {
  const auto decoder = OpenBytes(EncodeArt(Stripes({40, 30}, BlackAndWhite())), ".art");
  EXPECT_EQ(decoder->Facts().size, (Size{40, 30}));
  EXPECT_EQ(decoder->Facts().bitsPerPixel, 1);
  EXPECT_EQ(decoder->Facts().format, "ART");
}

TEST(Art, The_size_is_the_distance_of_the_corners) {
  auto file = Start(10, 13, 5, 6);
  file.Add({0xA0, 0});
  EXPECT_THAT(WordsOf(DecodeBytes(file.Bytes(), ".art")), ElementsAre(white, black, white));
}

TEST(Art, Corners_off_the_origin_need_the_exact_length_or_one_row_more) {
  auto file = Start(10, 13, 5, 6);
  file.Add({0xA0, 0, 0, 0});
  EXPECT_NO_THROW(OpenBytes(file.Bytes(), ".art"));
  file.U8(0);
  EXPECT_THROW(OpenBytes(file.Bytes(), ".art"), RunTimeError);
}

TEST(Art, The_second_corner_is_the_size_where_only_that_fits_the_length) {
  auto file = Start(10, 40, 1, 2);
  file.Fill(12, 0xFF);
  EXPECT_EQ(OpenBytes(file.Bytes(), ".art")->Facts().size, (Size{40, 2}));
}

TEST(Art, Bytes_behind_the_rows_mean_nothing) {
  auto file = Start(0, 3, 0, 1);
  file.Add({0xA0, 0}).Fill(77, 0x55);
  EXPECT_THAT(WordsOf(DecodeBytes(file.Bytes(), ".art")), ElementsAre(white, black, white));
}

TEST(Art, Packed_runs_stop_at_the_end_of_the_picture) {
  ByteWriter file;
  file.U16Le(0xFFFF).U16Le(300).U16Le(300).U16Le(8).U16Le(1).U16Le(1).Add({0x81, 0x0F, 0x81, 0xFF});
  EXPECT_THAT(WordsOf(DecodeBytes(file.Bytes(), ".art")),
              ElementsAre(black, black, black, black, white, white, white, white));
}

TEST(Art, Print_rows_may_be_filled_up_to_three_bytes_more) {
  for (const unsigned filling : {0U, 1U, 2U, 3U}) {
    ByteWriter file;
    file.U16Le(0xFFFF).U16Le(300).U16Le(300).U16Le(8).U16Le(2).U16Le(1);
    for (const unsigned row : {0x0FU, 0xF0U}) file.U8(filling).U8(row).Fill(filling, 0xAA);
    const Pixels pixels = DecodeBytes(file.Bytes(), ".art");
    EXPECT_THAT(RowOf(pixels, 0), ElementsAre(black, black, black, black, white, white, white, white));
    EXPECT_THAT(RowOf(pixels, 1), ElementsAre(white, white, white, white, black, black, black, black));
  }
}

TEST(Art, What_a_cut_file_lacks_is_white) {
  auto file = Start(0, 16, 0, 2);
  file.Add({0, 0, 0});
  const Pixels pixels = DecodeBytes(file.Bytes(), ".art");
  EXPECT_EQ(RowOf(pixels, 0), std::vector<std::uint32_t>(16, black));
  EXPECT_THAT(RowOf(pixels, 1), testing::Contains(black).Times(8));
  EXPECT_EQ(RowOf(pixels, 1)[15], white);
}

TEST(Art, It_goes_by_its_name_alone) {
  const auto file = EncodeArt(Stripes({40, 30}, BlackAndWhite()));
  EXPECT_THROW(OpenBytes(file, ""), RunTimeError);
  EXPECT_THROW(OpenBytes(file, ".txt"), RunTimeError);
}

TEST(Art, Other_files_of_the_name_are_refused) {
  ByteWriter online;
  online.Text("JG\x04\x0E").Fill(60);
  EXPECT_THROW(OpenBytes(online.Bytes(), ".art"), RunTimeError);
  ByteWriter text;
  text.Text("The art of colour, a text about it");
  EXPECT_THROW(OpenBytes(text.Bytes(), ".art"), RunTimeError);
  EXPECT_THROW(OpenBytes(Start(9, 8, 0, 5).Fill(90).Bytes(), ".art"), RunTimeError);
}

}  // namespace
}  // namespace lumidex::art
