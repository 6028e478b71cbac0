#include "pictures/codecs/ico.h"

#include <gmock/gmock.h>

#include "base/run_time_error.h"
#include "pictures/support/byte_writer.h"
#include "pictures/support/library_writers.h"

namespace lumidex {
namespace {

using testing::ElementsAre;

struct Image {
  std::vector<std::uint8_t> bytes;
  unsigned width = 0;
};

// `kind` 1 is an icon, 2 a cursor. The directory states a wrong length for every picture.
std::vector<std::uint8_t> File(unsigned kind, const std::vector<Image>& images) {
  ByteWriter file;
  file.U16Le(0).U16Le(kind).U16Le(static_cast<unsigned>(images.size()));
  std::size_t offset = 6 + 16 * images.size();
  for (const Image& image : images) {
    file.U8(image.width)
        .U8(image.width)
        .U8(0)
        .U8(0)
        .U16Le(0)
        .U16Le(0)
        .U32Le(3)
        .U32Le(static_cast<std::uint32_t>(offset));
    offset += image.bytes.size();
  }
  for (const Image& image : images) file.Add(image.bytes);
  return file.Take();
}

ByteWriter Header(unsigned width, unsigned height, unsigned bits) {
  ByteWriter header;
  header.U32Le(40).U32Le(width).U32Le(height * 2).U16Le(1).U16Le(bits);
  header.Fill(24);
  return header;
}

// One row of two pixels: red and green, the mask hides what `mask` says (highest bits first).
Image TwoOf24Bits(unsigned mask) {
  auto image = Header(2, 1, 24);
  image.Add({0, 0, 255, 0, 255, 0, 0, 0}).Add({mask, 0, 0, 0});
  return {image.Take(), 2};
}

Image TwoOf32Bits(unsigned firstAlpha, unsigned secondAlpha, unsigned mask) {
  auto image = Header(2, 1, 32);
  image.Add({0, 0, 255, firstAlpha, 0, 255, 0, secondAlpha}).Add({mask, 0, 0, 0});
  return {image.Take(), 2};
}

TEST(Icon, The_mask_makes_pixels_transparent) {
  EXPECT_THAT(WordsOf(DecodeBytes(File(1, {TwoOf24Bits(0x40)}))), ElementsAre(0xFFFF0000U, 0U));
}

TEST(Icon, What_would_invert_the_screen_is_transparent_beside_other_pixels) {
  EXPECT_THAT(WordsOf(DecodeBytes(File(2, {TwoOf24Bits(0x80)}))), ElementsAre(0U, 0xFF00FF00U));
}

TEST(Icon, What_does_nothing_but_invert_the_screen_is_shown_as_over_white) {
  EXPECT_THAT(WordsOf(DecodeBytes(File(2, {TwoOf24Bits(0xC0)}))), ElementsAre(0xFF00FFFFU, 0xFFFF00FFU));
  auto beam = Header(3, 1, 1);
  beam.U32Le(0).U32Le(0xFFFFFF).Add({0x40, 0, 0, 0}).Add({0xE0, 0, 0, 0});
  EXPECT_THAT(WordsOf(DecodeBytes(File(2, {{beam.Take(), 3}}))), ElementsAre(0U, 0xFF000000U, 0U));
  // Colours beside alpha that is 0 are left over from a picture that was cleared.
  EXPECT_THAT(WordsOf(DecodeBytes(File(2, {TwoOf32Bits(0, 0, 0xC0)}))), ElementsAre(0U, 0U));
}

TEST(Icon, Alpha_of_its_own_makes_the_mask_count_for_nothing) {
  EXPECT_THAT(WordsOf(DecodeBytes(File(1, {TwoOf32Bits(128, 255, 0xC0)}))),
              ElementsAre(0x80FF0000U, 0xFF00FF00U));
}

TEST(Icon, Where_all_alpha_is_zero_the_mask_counts) {
  EXPECT_THAT(WordsOf(DecodeBytes(File(1, {TwoOf32Bits(0, 0, 0x80)}))), ElementsAre(0U, 0xFF00FF00U));
}

TEST(Icon, A_missing_mask_hides_nothing) {
  auto file = File(1, {TwoOf24Bits(0xFF)});
  file.erase(file.end() - 4, file.end());
  EXPECT_THAT(WordsOf(DecodeBytes(file)), ElementsAre(0xFFFF0000U, 0xFF00FF00U));
}

TEST(Icon, A_missing_mask_may_not_be_counted_in_the_height) {
  ByteWriter image;
  image.U32Le(40).U32Le(1).U32Le(2).U16Le(1).U16Le(24).Fill(24).Add({0, 255, 0, 0}).Add({0, 0, 255, 0});
  const auto open = [&image](unsigned height) {
    ByteWriter file;
    file.U16Le(0).U16Le(1).U16Le(1).U8(1).U8(height).Fill(6).U32Le(48).U32Le(22).Add(image.Bytes());
    return WordsOf(DecodeBytes(file.Bytes()));
  };
  EXPECT_THAT(open(2), ElementsAre(0xFFFF0000U, 0xFF00FF00U));
  EXPECT_THAT(open(1), ElementsAre(0xFF00FF00U));
}

TEST(Icon, What_the_directory_says_of_length_and_depth_is_not_believed) {
  auto file = File(1, {TwoOf24Bits(0)});
  for (const unsigned bits : {0U, 1U, 255U}) {
    file[12] = static_cast<std::uint8_t>(bits);
    EXPECT_EQ(OpenBytes(file)->Facts().bitsPerPixel, 24);
    EXPECT_THAT(WordsOf(DecodeBytes(file)), ElementsAre(0xFFFF0000U, 0xFF00FF00U));
  }
}

TEST(Icon, Cursors_may_hold_a_PNG) {
  const auto png = WritePng({3, 1}, {1, 2, 3, 4, 5, 6, 7, 8, 9}, {});
  EXPECT_THAT(WordsOf(DecodeBytes(File(2, {{png, 3}}))), ElementsAre(0xFF010203U, 0xFF040506U, 0xFF070809U));
}

TEST(Icon, The_largest_then_deepest_picture_is_shown_whatever_the_directory_says) {
  auto small = TwoOf32Bits(255, 255, 0);
  small.width = 200;
  const auto large = WritePng({3, 1}, {1, 2, 3, 4, 5, 6, 7, 8, 9}, {});
  const auto decoder = OpenBytes(File(1, {small, {large, 3}, TwoOf24Bits(0)}));
  EXPECT_EQ(decoder->Facts().size, (Size{3, 1}));
  EXPECT_EQ(OpenBytes(File(1, {TwoOf24Bits(0), TwoOf32Bits(1, 1, 0)}))->Facts().bitsPerPixel, 32);
}

TEST(Icon, Of_two_as_large_one_that_is_cut_off_comes_last) {
  auto file = File(1, {TwoOf24Bits(0), TwoOf32Bits(255, 255, 0)});
  EXPECT_EQ(OpenBytes(file)->Facts().bitsPerPixel, 32);
  file.resize(file.size() - 4);  // its mask
  EXPECT_EQ(OpenBytes(file)->Facts().bitsPerPixel, 32);
  file.resize(file.size() - 1);
  EXPECT_EQ(OpenBytes(file)->Facts().bitsPerPixel, 24);
}

TEST(Icon, A_picture_that_cannot_be_read_leaves_the_others) {
  Image broken = TwoOf24Bits(0);
  broken.bytes[0] = 9;
  EXPECT_EQ(OpenBytes(File(1, {broken, TwoOf24Bits(0)}))->Facts().size, (Size{2, 1}));
  EXPECT_THROW(OpenBytes(File(1, {broken})), RunTimeError);
}

TEST(Icon, Cursors_are_told_by_their_number) {
  EXPECT_EQ(OpenBytes(File(2, {TwoOf24Bits(0)}))->Facts().format, "CUR");
  EXPECT_EQ(OpenBytes(File(1, {TwoOf24Bits(0)}))->Facts().format, "ICO");
}

}  // namespace
}  // namespace lumidex
