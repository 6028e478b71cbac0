#include "pictures/codecs/mac.h"

#include <gmock/gmock.h>

#include "base/run_time_error.h"
#include "gallery/encoders/mac_encoder.h"
#include "pictures/support/byte_writer.h"
#include "pictures/support/colours.h"
#include "pictures/support/patterns.h"

namespace lumidex::mac {
namespace {

using argb::black, argb::white;
constexpr Size macSize{576, 720};

ByteWriter Start(std::uint32_t version) {
  ByteWriter file;
  file.U32Be(version).Fill(508);
  return file;
}

TEST(Mac, What_was_encoded_comes_back) {
  const IndexedPicture picture = Stripes(macSize, BlackAndWhite());
  for (const MacWrapper wrapper : {MacWrapper::None, MacWrapper::MacBinary}) {
    const auto decoder = OpenBytes(EncodeMac(picture, wrapper), ".mac");
    EXPECT_EQ(decoder->Facts().size, macSize);
    EXPECT_EQ(decoder->Facts().bitsPerPixel, 1);
    EXPECT_EQ(WordsOf(decoder->Decode({})), WordsOf(Expand(picture)));
  }
}

TEST(Mac, A_wrapped_file_needs_no_name) {
  const IndexedPicture picture = Stripes(macSize, BlackAndWhite());
  EXPECT_NO_THROW(OpenBytes(EncodeMac(picture, MacWrapper::MacBinary), ""));
  EXPECT_THROW(OpenBytes(EncodeMac(picture, MacWrapper::None), ""), RunTimeError);
}

TEST(Mac, Runs_may_cross_rows) {
  auto file = Start(0);
  file.Add({0xB9, 0x00}).Add({0xB9, 0xFF});  // 72 bytes of white, 72 of black
  file.Add({0xA5, 0x00, 0xA5, 0xFF});        // 92 bytes, then 92 more from inside the next row on
  const Pixels pixels = DecodeBytes(file.Bytes(), ".mac");
  EXPECT_EQ(pixels.Row(0)[575], white);
  EXPECT_EQ(pixels.Row(1)[0], black);
  EXPECT_EQ(pixels.Row(2)[575], white);
  EXPECT_EQ(pixels.Row(3)[20 * 8 - 1], white);
  EXPECT_EQ(pixels.Row(3)[20 * 8], black);
}

TEST(Mac, Header_versions_0_2_and_3_occur) {
  for (const std::uint32_t version : {0U, 2U, 3U})
    EXPECT_EQ(DecodeBytes(Start(version).Add({0x81, 0xFF}).Bytes(), ".mac").Row(0)[0], black);
  EXPECT_THROW(OpenBytes(Start(0x3B206D61).U8(0).Bytes(), ".mac"), RunTimeError);
}

TEST(Mac, Bytes_behind_the_last_row_mean_nothing) {
  auto file = Start(2);
  for (int i = 0; i < 406; ++i) file.Add({0x81, 0xFF});  // 128 bytes each, 128 more than there are
  const Pixels pixels = DecodeBytes(file.Fill(300, 0x7F).Bytes(), ".mac");
  EXPECT_EQ(pixels.GetSize(), macSize);
  EXPECT_EQ(pixels.Row(719)[575], black);
}

TEST(Mac, What_a_cut_file_lacks_is_white) {
  const Pixels pixels = DecodeBytes(Start(0).Add({0x81, 0xFF}).Bytes(), ".mac");
  EXPECT_EQ(pixels.Row(0)[575], black);
  EXPECT_EQ(pixels.Row(1)[447], black);
  EXPECT_EQ(pixels.Row(1)[448], white);
  EXPECT_EQ(pixels.Row(719)[575], white);
}

TEST(Mac, Other_wrapped_files_are_refused) {
  std::vector<std::uint8_t> file = EncodeMac(Stripes(macSize, BlackAndWhite()), MacWrapper::MacBinary);
  file[65] = 'T';
  EXPECT_THROW(OpenBytes(file, ".mac"), RunTimeError);
}

}  // namespace
}  // namespace lumidex::mac
