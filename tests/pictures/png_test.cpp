#include "pictures/codecs/png.h"

#include <gmock/gmock.h>

#include "base/run_time_error.h"
#include "gallery/encoders/png_encoder.h"
#include "pictures/support/byte_writer.h"
#include "pictures/support/library_writers.h"
#include "pictures/support/profiles.h"

namespace lumidex {
namespace {

OpenOptions AsStored() {
  OpenOptions options;
  options.asStored = true;
  return options;
}

using testing::ElementsAre;

constexpr int Grey = 0, Colour = 2, Positions = 3, GreyAlpha = 4, ColourAlpha = 6;

TEST(Png, Colours_come_back_exactly) {
  const auto file = WritePng({2, 1}, {255, 0, 0, 1, 2, 3}, {});
  EXPECT_THAT(WordsOf(DecodeBytes(file)), ElementsAre(0xFFFF0000U, 0xFF010203U));
  EXPECT_EQ(DecodeBytes(file).Format(), PixelFormat::Rgb);
}

TEST(Png, Alpha_stays_straight_and_hides_colours_at_zero) {
  const auto file = WritePng({2, 1}, {10, 20, 30, 128, 9, 9, 9, 0}, {.colourType = ColourAlpha});
  const Pixels pixels = DecodeBytes(file);
  EXPECT_THAT(WordsOf(pixels), ElementsAre(0x800A141EU, 0U));
  EXPECT_EQ(pixels.Format(), PixelFormat::Argb);
}

TEST(Png, An_alpha_channel_that_is_all_opaque_makes_no_transparent_picture) {
  const auto file = WritePng({1, 1}, {10, 20, 30, 255}, {.colourType = ColourAlpha});
  EXPECT_EQ(DecodeBytes(file).Format(), PixelFormat::Rgb);
}

TEST(Png, Sixteen_bits_are_scaled_to_eight) {
  const auto file = WritePng({2, 1}, {0xFF, 0xFF, 0x80, 0x00}, {.bitDepth = 16, .colourType = Grey});
  EXPECT_THAT(WordsOf(DecodeBytes(file)), ElementsAre(0xFFFFFFFFU, 0xFF808080U));
}

TEST(Png, Few_bits_of_grey_spread_over_the_whole_range) {
  const auto file = WritePng({4, 1}, {0b00011011}, {.bitDepth = 2, .colourType = Grey});
  EXPECT_THAT(WordsOf(DecodeBytes(file)), ElementsAre(0xFF000000U, 0xFF555555U, 0xFFAAAAAAU, 0xFFFFFFFFU));
}

TEST(Png, Palette_entries_may_be_transparent) {
  const auto file = WritePng({3, 1}, {0b00011000},
                             {.bitDepth = 2,
                              .colourType = Positions,
                              .palette = {1, 2, 3, 4, 5, 6, 7, 8, 9},
                              .transparency = {0, 128}});
  EXPECT_THAT(WordsOf(DecodeBytes(file)), ElementsAre(0U, 0x80040506U, 0xFF070809U));
}

TEST(Png, Interlaced_pictures_come_back_exactly) {
  std::vector<std::uint8_t> rows;
  for (unsigned i = 0; i < 9 * 7 * 3; ++i) rows.push_back(static_cast<std::uint8_t>(i * 5));
  const auto plain = DecodeBytes(WritePng({9, 7}, rows, {}));
  EXPECT_EQ(WordsOf(DecodeBytes(WritePng({9, 7}, rows, {.interlaced = true}))), WordsOf(plain));
}

struct Kind {
  int depth;
  int type;
  int bits;
};

TEST(Png, Depth_is_what_a_bitmap_can_hold) {
  for (const auto& [depth, type, bits] :
       {Kind{1, Grey, 1}, Kind{2, Grey, 2}, Kind{16, Grey, 16}, Kind{8, Colour, 24}, Kind{16, Colour, 24},
        Kind{8, GreyAlpha, 16}, Kind{16, GreyAlpha, 32}, Kind{8, ColourAlpha, 32},
        Kind{16, ColourAlpha, 32}}) {
    const auto file = WritePng({1, 1}, std::vector<std::uint8_t>(8), {.bitDepth = depth, .colourType = type});
    EXPECT_EQ(OpenBytes(file)->Facts().bitsPerPixel, bits) << depth << " bits, colour type " << type;
  }
}

TEST(Png, An_embedded_profile_is_converted_to_srgb) {
  const auto file = WritePng({1, 1}, {255, 0, 0}, {.icc = SwappedProfile()});
  const std::uint32_t word = DecodeBytes(file).Row(0)[0];
  EXPECT_GT(word & 255, 250U);
  EXPECT_LT(word >> 16 & 255, 5U);
  EXPECT_THAT(WordsOf(DecodeBytes(file, ".png", AsStored())), ElementsAre(0xFFFF0000U));
}

TEST(Png, A_profile_that_is_srgb_changes_nothing) {
  const auto file = WritePng({2, 1}, {255, 1, 77, 3, 99, 200}, {.icc = SrgbProfile()});
  EXPECT_THAT(WordsOf(DecodeBytes(file)), ElementsAre(0xFFFF014DU, 0xFF0363C8U));
}

TEST(Png, A_cut_file_shows_its_rows_and_stays_blank_below) {
  std::vector<std::uint8_t> rows;
  std::uint32_t state = 1;
  for (int i = 0; i < 200 * 200 * 3; ++i)
    rows.push_back(static_cast<std::uint8_t>((state = state * 1664525 + 1013904223) >> 24));
  auto file = WritePng({200, 200}, rows, {});
  const auto whole = DecodeBytes(file);
  file.resize(file.size() / 2);
  const Pixels pixels = DecodeBytes(file);
  EXPECT_EQ(RowOf(pixels, 0), RowOf(whole, 0));
  EXPECT_EQ(RowOf(pixels, 20), RowOf(whole, 20));
  EXPECT_THAT(RowOf(pixels, 199), testing::Each(blankPixel));
}

TEST(Png, A_wrong_check_sum_does_not_lose_the_picture) {
  auto file = WritePng({1, 1}, {1, 2, 3}, {});
  const std::string bytes(file.begin(), file.end());
  const std::size_t end = bytes.find("IEND") - 4;
  file[end - 1] ^= 1;
  EXPECT_THAT(WordsOf(DecodeBytes(file)), ElementsAre(0xFF010203U));
}

// Replaces width and height in the header chunk; its check sum is not looked at.
std::vector<std::uint8_t> Sized(std::uint32_t width, std::uint32_t height,
                                const PngKindOptions& options = {}) {
  const auto file = WritePng({1, 1}, {1, 2, 3}, options);
  ByteWriter sized;
  sized.Append(std::span(file).first(16)).U32Be(width).U32Be(height).Append(std::span(file).subspan(24));
  return sized.Take();
}

TEST(Png, Sizes_beyond_the_limits_are_refused) {
  EXPECT_NO_THROW(OpenBytes(Sized(32767, 1)));
  EXPECT_THROW(OpenBytes(Sized(32768, 1)), RunTimeError);
  EXPECT_THROW(OpenBytes(Sized(1, 32768)), RunTimeError);
  EXPECT_THROW(OpenBytes(Sized(32767, 32767)), RunTimeError);
  EXPECT_THROW(OpenBytes(Sized(0, 1)), RunTimeError);
  EXPECT_THROW(OpenBytes(Sized(0x7FFFFFFF, 0x7FFFFFFF)), RunTimeError);
}

TEST(Png, A_small_file_buys_less_of_what_takes_longer_to_unpack) {
  EXPECT_NO_THROW(OpenBytes(Sized(8000, 8000)));
  EXPECT_THROW(OpenBytes(Sized(8000, 8000, {.interlaced = true})), RunTimeError);
}

}  // namespace
}  // namespace lumidex
