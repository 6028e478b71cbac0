#include "pictures/codecs/ico.h"

#include <gmock/gmock.h>

#include "base/run_time_error.h"
#include "pictures/support/byte_writer.h"
#include "pictures/support/library_writers.h"

namespace lumidex::icon {
namespace {

using testing::ElementsAre;

struct Image {
  std::vector<std::uint8_t> bytes;
  unsigned width = 0;
  unsigned colours = 0, bits = 0;  // as the directory says them
};

// `kind` 1 is an icon, 2 a cursor. The directory states a wrong length for every picture.
std::vector<std::uint8_t> File(unsigned kind, const std::vector<Image>& images) {
  ByteWriter file;
  file.U16Le(0).U16Le(kind).U16Le(static_cast<unsigned>(images.size()));
  std::size_t offset = 6 + 16 * images.size();
  for (const Image& image : images) {
    file.U8(image.width)
        .U8(image.width)
        .U8(image.colours)
        .U8(0)
        .U16Le(0)
        .U16Le(image.bits)
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

TEST(Icon, Of_two_as_deep_by_their_headers_the_deeper_one_by_the_directory_is_shown) {
  const auto png = [](std::uint8_t level) { return WritePng({1, 1}, {level, 0, 0, 255}, {.colourType = 6}); };
  const Image few{png(1), 1, 12, 4}, many{png(2), 1, 0, 32}, silent{png(3), 1, 0, 0};
  EXPECT_THAT(WordsOf(DecodeBytes(File(1, {few, many}))), ElementsAre(0xFF020000U));
  EXPECT_THAT(WordsOf(DecodeBytes(File(1, {many, few}))), ElementsAre(0xFF020000U));
  EXPECT_THAT(WordsOf(DecodeBytes(File(1, {few, silent}))), ElementsAre(0xFF030000U));
  // Without bits the number of colours says it; a cursor has its hot spot in the place of the bits.
  EXPECT_THAT(WordsOf(DecodeBytes(File(1, {{png(1), 1, 12, 0}, silent}))), ElementsAre(0xFF030000U));
  EXPECT_THAT(WordsOf(DecodeBytes(File(2, {{png(1), 1, 12, 32}, {png(2), 1, 0, 8}}))),
              ElementsAre(0xFF020000U));
  // Few colours stored deep come after a picture that has more of them, though fewer bits.
  const Image true24{WritePng({1, 1}, {4, 0, 0}, {}), 1, 0, 24};
  EXPECT_THAT(WordsOf(DecodeBytes(File(1, {few, true24}))), ElementsAre(0xFF040000U));
}

// A header of the fifth version, with bit fields for the colours and for alpha.
std::vector<std::uint8_t> NewHeader(unsigned width, unsigned height, std::uint32_t alphaMask) {
  ByteWriter header;
  header.U32Le(124).U32Le(width).U32Le(height).U16Le(1).U16Le(32).U32Le(3).Fill(20);
  header.U32Le(0xFF0000).U32Le(0xFF00).U32Le(0xFF).U32Le(alphaMask).Fill(68);
  return header.Take();
}

TEST(Icon, A_newer_header_with_bit_fields_may_come_without_a_mask_too) {
  ByteWriter image;
  image.Add(NewHeader(1, 2, 0xFF000000)).Add({0, 255, 0, 255}).Add({0, 0, 255, 128});
  ByteWriter file;
  file.U16Le(0).U16Le(1).U16Le(1).U8(1).U8(2).Fill(6);
  file.U32Le(static_cast<std::uint32_t>(image.Bytes().size())).U32Le(22).Add(image.Bytes());
  EXPECT_THAT(WordsOf(DecodeBytes(file.Bytes())), ElementsAre(0x80FF0000U, 0xFF00FF00U));
}

TEST(Icon, Alpha_of_its_own_counts_with_a_newer_header_too) {
  for (const std::uint32_t alphaMask : {0xFF000000U, 0U}) {
    ByteWriter image;
    image.Add(NewHeader(2, 2, alphaMask)).Add({0, 0, 255, 128, 0, 255, 0, 255}).Add({0xC0, 0, 0, 0});
    EXPECT_THAT(WordsOf(DecodeBytes(File(1, {{image.Take(), 2}}))), ElementsAre(0x80FF0000U, 0xFF00FF00U));
  }
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
}  // namespace lumidex::icon
