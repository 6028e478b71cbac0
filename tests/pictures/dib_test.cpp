#include "pictures/dib.h"

#include <gmock/gmock.h>

#include "base/run_time_error.h"
#include "pictures/support/byte_writer.h"
#include "pictures/support/library_writers.h"

namespace lumidex {
namespace {

using testing::Each;
using testing::ElementsAre;

ByteWriter Header(unsigned width, unsigned height, unsigned bits, std::uint32_t compression) {
  ByteWriter header;
  header.U32Le(40).U32Le(width).U32Le(height).U16Le(1).U16Le(bits).U32Le(compression);
  return header.Fill(20);
}

TEST(Dib, Colours_may_be_positions_in_a_palette_outside) {
  const std::vector<std::uint32_t> palette{0xFF000001, 0xFF000002, 0xFF000003};
  DibOptions options;
  options.outsideColours = palette;
  auto file = Header(2, 1, 1, 0);
  file.U16Le(2).U16Le(9);  // the last is beyond the palette
  const DibHeader header = ReadDibHeader(file.Bytes(), options);
  EXPECT_EQ(header.pixelOffset, file.Size());
  const std::vector<std::uint8_t> row{0x40, 0, 0, 0};
  EXPECT_THAT(WordsOf(DecodeDib(header, row)), ElementsAre(0xFF000003U, 0xFF000000U));
}

TEST(Dib, The_pixels_may_be_a_whole_file) {
  const std::vector<std::uint8_t> samples(4 * 3 * 3, 200);
  const DibHeader png = ReadDibHeader(Header(4, 3, 0, 5).Bytes());
  EXPECT_THAT(WordsOf(DecodeDib(png, WritePng({4, 3}, samples, {}))), Each(0xFFC8C8C8U));
  const DibHeader jpeg = ReadDibHeader(Header(4, 3, 0, 4).Bytes());
  EXPECT_THAT(WordsOf(DecodeDib(jpeg, WriteJpeg({4, 3}, samples, {}))), Each(0xFFC8C8C8U));
}

TEST(Dib, A_file_inside_that_is_none_leaves_the_picture_blank) {
  const DibHeader header = ReadDibHeader(Header(2, 1, 0, 5).Bytes());
  EXPECT_THAT(WordsOf(DecodeDib(header, std::vector<std::uint8_t>{1, 2, 3})), Each(blankPixel));
}

TEST(Dib, Four_masks_follow_where_alpha_is_told) {
  auto file = Header(1, 1, 32, 6);
  file.U32Le(0xFF).U32Le(0xFF00).U32Le(0xFF0000).U32Le(0xFF000000);
  const DibHeader header = ReadDibHeader(file.Bytes());
  EXPECT_THAT(WordsOf(DecodeDib(header, std::vector<std::uint8_t>{1, 2, 3, 4})), ElementsAre(0x04010203U));
}

TEST(Dib, Masks_may_be_wider_than_eight_bits) {
  auto file = Header(1, 1, 32, 3);
  file.U32Le(0x3FF00000).U32Le(0xFFC00).U32Le(0x3FF);
  const DibHeader header = ReadDibHeader(file.Bytes());
  // 1023, 512 and 0 of 1023.
  EXPECT_THAT(WordsOf(DecodeDib(header, std::vector<std::uint8_t>{0, 0, 0xF8, 0x3F})),
              ElementsAre(0xFFFF8000U));
}

TEST(Dib, Codings_that_do_not_fit_the_depth_are_refused) {
  for (const auto& [bits, compression] :
       {std::pair{4U, 1U}, {8U, 2U}, {24U, 3U}, {1U, 3U}, {24U, 6U}, {8U, 11U}, {24U, 0x10000U}})
    EXPECT_THROW(ReadDibHeader(Header(1, 1, bits, compression).Bytes()), RunTimeError) << compression;
  EXPECT_THROW(ReadDibHeader(Header(1, 1, 5, 0).Bytes()), RunTimeError);
}

}  // namespace
}  // namespace lumidex
