#include "pictures/codecs/msp.h"

#include <gmock/gmock.h>

#include "base/run_time_error.h"
#include "gallery/encoders/msp_encoder.h"
#include "pictures/support/byte_writer.h"
#include "pictures/support/colours.h"
#include "pictures/support/patterns.h"

namespace lumidex::msp {
namespace {

using testing::ElementsAre;

using argb::black, argb::white;

ByteWriter Start(std::string_view magic, unsigned width, unsigned height) {
  ByteWriter file;
  file.Text(magic).U16Le(width).U16Le(height).Fill(24);
  return file;
}

TEST(Msp, What_was_encoded_comes_back) {
  for (const MspVersion version : {MspVersion::One, MspVersion::Two}) {
    for (const int width : {1, 8, 37, 4000}) {
      const IndexedPicture picture = Stripes({width, 23}, BlackAndWhite());
      const auto decoder = OpenBytes(EncodeMsp(picture, version));
      EXPECT_EQ(decoder->Facts().size, picture.size);
      EXPECT_EQ(decoder->Facts().bitsPerPixel, 1);
      EXPECT_EQ(WordsOf(decoder->Decode({})), WordsOf(Expand(picture))) << width;
    }
  }
}

TEST(Msp, Rows_of_version_1_are_filled_up_to_bytes) {
  auto file = Start("DanM", 3, 2);
  file.Add({0xA0, 0x40});
  EXPECT_THAT(WordsOf(DecodeBytes(file.Bytes())), ElementsAre(white, black, white, black, white, black));
}

TEST(Msp, A_row_without_bytes_is_white) {
  auto file = Start("LinS", 8, 2);
  file.U16Le(0).U16Le(3).Add({0, 1, 0});
  const Pixels pixels = DecodeBytes(file.Bytes());
  EXPECT_EQ(RowOf(pixels, 0), std::vector<std::uint32_t>(8, white));
  EXPECT_EQ(RowOf(pixels, 1), std::vector<std::uint32_t>(8, black));
}

TEST(Msp, Runs_stop_at_the_end_of_the_row) {
  auto file = Start("LinS", 8, 3);
  file.U16Le(3).U16Le(4).U16Le(2).Add({0, 200, 0}).Add({3, 0, 0xFF, 0}).Add({1, 0x0F});
  const Pixels pixels = DecodeBytes(file.Bytes());
  EXPECT_EQ(RowOf(pixels, 0), std::vector<std::uint32_t>(8, black));
  EXPECT_EQ(RowOf(pixels, 1), std::vector<std::uint32_t>(8, black));
  EXPECT_THAT(RowOf(pixels, 2), ElementsAre(black, black, black, black, white, white, white, white));
}

TEST(Msp, A_row_that_is_too_short_ends_in_white) {
  auto file = Start("LinS", 16, 1);
  file.U16Le(2).Add({1, 0});
  const Pixels pixels = DecodeBytes(file.Bytes());
  EXPECT_EQ(pixels.Row(0)[7], black);
  EXPECT_EQ(pixels.Row(0)[8], white);
}

TEST(Msp, A_wrong_checksum_is_forgiven) {
  std::vector<std::uint8_t> file = EncodeMsp(Stripes({9, 9}, BlackAndWhite()));
  file[24] ^= 0x55;
  EXPECT_NO_THROW(OpenBytes(file));
}

TEST(Msp, Bytes_behind_the_rows_mean_nothing) {
  auto file = Start("DanM", 8, 1);
  EXPECT_EQ(WordsOf(DecodeBytes(file.U8(0).Fill(99, 0x55).Bytes())), std::vector<std::uint32_t>(8, black));
}

TEST(Msp, What_a_cut_file_of_version_1_lacks_is_white) {
  auto file = Start("DanM", 8, 2);
  const Pixels pixels = DecodeBytes(file.U8(0).Bytes());
  EXPECT_EQ(RowOf(pixels, 0), std::vector<std::uint32_t>(8, black));
  EXPECT_EQ(RowOf(pixels, 1), std::vector<std::uint32_t>(8, white));
}

TEST(Msp, A_list_of_rows_that_is_longer_than_the_file_ends_in_white) {
  auto file = Start("LinS", 8, 500);
  file.U16Le(7).U8(1);
  EXPECT_EQ(WordsOf(DecodeBytes(file.Bytes())), std::vector<std::uint32_t>(8 * 500, white));
}

TEST(Msp, Other_files_of_the_name_are_refused) {
  ByteWriter text;
  text.Text("Name: caffeine, a library of mass spectra").Fill(40);
  EXPECT_THROW(OpenBytes(text.Bytes(), ".msp"), RunTimeError);
  EXPECT_THROW(OpenBytes(Start("DanM", 0, 5).Bytes(), ".msp"), RunTimeError);
}

}  // namespace
}  // namespace lumidex::msp
