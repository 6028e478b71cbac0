#include "pictures/codecs/cut.h"

#include <gmock/gmock.h>

#include "base/run_time_error.h"
#include "gallery/encoders/cut_encoder.h"
#include "pictures/support/byte_writer.h"
#include "pictures/support/colours.h"
#include "pictures/support/patterns.h"

namespace lumidex::cut {
namespace {

using testing::ElementsAre;

using argb::black, argb::white;

ByteWriter Start(unsigned width, unsigned height) {
  ByteWriter file;
  file.U16Le(width).U16Le(height).U16Le(0);
  return file;
}

Pixels DecodeWithPalette(const std::vector<std::uint8_t>& file, std::vector<std::uint8_t> paletteFile) {
  PictureData data = DataOf(file, ".cut");
  data.paletteFile = std::move(paletteFile);
  return OpenDecoder(data)->Decode({});
}

TEST(Cut, What_was_encoded_comes_back_with_its_palette_file) {
  const IndexedPicture picture = Stripes({333, 29}, DistinctColours(256));
  EXPECT_EQ(WordsOf(DecodeWithPalette(EncodeCut(picture), EncodeCutPalette(picture.palette))),
            WordsOf(Expand(picture)));
}

TEST(Cut, Palette_entries_never_lie_across_a_block) {
  // Entry 78 would begin four bytes before the end of the first block.
  Colours palette(80, black);
  palette[77] = 0xFF111111;
  palette[78] = 0xFF222222;
  auto file = Start(2, 1);
  file.U16Le(3).Add({2, 77, 78});
  EXPECT_THAT(WordsOf(DecodeWithPalette(file.Bytes(), EncodeCutPalette(palette))),
              ElementsAre(0xFF111111, 0xFF222222));
}

TEST(Cut, Palette_levels_are_scaled_only_from_more_than_255) {
  auto file = Start(1, 1);
  file.U16Le(2).Add({1, 0});
  std::vector<std::uint8_t> levels = EncodeCutPalette({0xFF402010});
  EXPECT_THAT(WordsOf(DecodeWithPalette(file.Bytes(), levels)), ElementsAre(0xFF402010));
  levels[14] = 0x3F;  // the red maximum says 63 where levels go to 255
  EXPECT_THAT(WordsOf(DecodeWithPalette(file.Bytes(), levels)), ElementsAre(0xFF402010));
  levels[14] = 0xFE;
  levels[15] = 0x01;  // 510
  EXPECT_THAT(WordsOf(DecodeWithPalette(file.Bytes(), levels)), ElementsAre(0xFF202010));
}

TEST(Cut, A_palette_of_hardware_registers_is_not_used) {
  auto file = Start(2, 1);
  file.U16Le(3).Add({2, 0, 1});
  std::vector<std::uint8_t> palette = EncodeCutPalette({0xFF402010, 0xFF402010});
  palette[7] = 1;
  EXPECT_THAT(WordsOf(DecodeWithPalette(file.Bytes(), palette)), ElementsAre(black, white));
}

TEST(Cut, Without_a_palette_greys_end_in_white_at_the_largest_index) {
  auto file = Start(3, 1);
  file.U16Le(4).Add({3, 0, 1, 2});
  EXPECT_THAT(WordsOf(DecodeBytes(file.Bytes(), ".cut")), ElementsAre(black, 0xFF808080, white));
}

TEST(Cut, Both_end_codes_end_a_row) {
  for (const unsigned end : {0U, 128U}) {
    auto file = Start(3, 2);
    file.U16Le(5).Add({0x82, 9, end, 0x81, 9}).U16Le(2).Add({0x83, 9});
    EXPECT_THAT(WordsOf(DecodeBytes(file.Bytes(), ".cut")),
                ElementsAre(white, white, black, white, white, white));
  }
}

TEST(Cut, Runs_stop_at_the_end_of_the_row) {
  auto file = Start(2, 2);
  file.U16Le(2).Add({0xFF, 1}).U16Le(6).Add({5, 0, 0, 1, 1, 1});
  EXPECT_THAT(WordsOf(DecodeBytes(file.Bytes(), ".cut")), ElementsAre(white, white, black, black));
}

TEST(Cut, The_next_row_is_found_by_the_length_of_the_last) {
  auto file = Start(2, 3);
  file.U16Le(5).Add({0x82, 1, 77, 77, 77}).U16Le(0).U16Le(2).Add({0x82, 1});
  EXPECT_THAT(WordsOf(DecodeBytes(file.Bytes(), ".cut")),
              ElementsAre(white, white, black, black, white, white));
}

TEST(Cut, What_a_cut_file_lacks_is_white) {
  auto file = Start(2, 3);
  file.U16Le(3).Add({2, 0, 1}).U16Le(3).Add({2, 0});
  EXPECT_THAT(WordsOf(DecodeBytes(file.Bytes(), ".cut")),
              ElementsAre(black, white, black, white, white, white));
}

TEST(Cut, Text_of_the_same_name_is_refused) {
  ByteWriter text;
  text.Text("cut here and there");
  EXPECT_THROW(OpenBytes(text.Bytes(), ".cut"), RunTimeError);
  EXPECT_THROW(OpenBytes(Start(0, 5).U8(1).Bytes(), ".cut"), RunTimeError);
}

TEST(Cut, Sides_above_the_limit_are_refused) {
  EXPECT_THROW(OpenBytes(Start(32768, 1).U8(1).Bytes(), ".cut"), RunTimeError);
  EXPECT_NO_THROW(OpenBytes(Start(32767, 1).U8(1).Bytes(), ".cut"));
}

}  // namespace
}  // namespace lumidex::cut
