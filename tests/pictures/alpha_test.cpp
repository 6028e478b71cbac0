#include "pictures/alpha.h"

#include <gmock/gmock.h>

#include "pictures/support/byte_writer.h"

namespace lumidex {
namespace {

using testing::ElementsAre;

Pixels Two(std::uint32_t first, std::uint32_t second, PixelFormat format = PixelFormat::Argb) {
  Pixels pixels = Pixels::Make({2, 1}, format, first);
  pixels.Row(0)[1] = second;
  return pixels;
}

TEST(Alpha, A_picture_without_a_visible_pixel_becomes_opaque) {
  Pixels pixels = Two(0x00112233, 0x00445566);
  SettleAlpha(pixels);
  EXPECT_THAT(WordsOf(pixels), ElementsAre(0xFF112233U, 0xFF445566U));
  EXPECT_EQ(pixels.Format(), PixelFormat::Rgb);
}

TEST(Alpha, Colours_that_nobody_sees_become_zero) {
  Pixels pixels = Two(0x00112233, 0x01445566);
  SettleAlpha(pixels);
  EXPECT_THAT(WordsOf(pixels), ElementsAre(0U, 0x01445566U));
  EXPECT_EQ(pixels.Format(), PixelFormat::Argb);
}

TEST(Alpha, Missing_rows_are_blank_and_have_no_say) {
  Pixels unused = Pixels::Make({1, 2}, PixelFormat::Argb, 0x00112233);
  SettleAlpha(unused, 1);
  EXPECT_THAT(WordsOf(unused), ElementsAre(0xFF112233U, blankPixel));
  EXPECT_EQ(unused.Format(), PixelFormat::Rgb);
  Pixels used = Pixels::Make({2, 2}, PixelFormat::Argb, 0x00112233);
  used.Row(0)[1] = 0x01445566;
  SettleAlpha(used, 1);
  EXPECT_THAT(WordsOf(used), ElementsAre(0U, 0x01445566U, blankPixel, blankPixel));
  EXPECT_EQ(used.Format(), PixelFormat::Argb);
}

TEST(Alpha, An_opaque_picture_is_declared_so) {
  Pixels pixels = Two(0xFF112233, 0xFF445566);
  DeclareOpaqueIfSo(pixels);
  EXPECT_EQ(pixels.Format(), PixelFormat::Rgb);
  Pixels clear = Two(0, 0);
  DeclareOpaqueIfSo(clear);
  EXPECT_EQ(clear.Format(), PixelFormat::Argb);
}

TEST(Alpha, Premultiplying_rounds_each_channel) {
  const Pixels pixels = Premultiplied(Two(0x80FF8001, 0x00FFFFFF));
  EXPECT_THAT(WordsOf(pixels), ElementsAre(0x80804001U, 0U));
  EXPECT_EQ(pixels.Format(), PixelFormat::ArgbPremultiplied);
}

std::vector<std::uint32_t> OverWhite(std::vector<std::uint32_t> words, PixelFormat format) {
  BlendOverWhite(words, format, words);
  return words;
}

TEST(Alpha, Blending_over_white_leaves_no_transparency) {
  EXPECT_THAT(OverWhite({0x80000000, 0x00000000}, PixelFormat::Argb), ElementsAre(0xFF7F7F7FU, 0xFFFFFFFFU));
  EXPECT_THAT(OverWhite({0x80400000, 0xFF000000}, PixelFormat::ArgbPremultiplied),
              ElementsAre(0xFFBF7F7FU, 0xFF000000U));
  EXPECT_THAT(OverWhite({0xFF123456, 0xFF000000}, PixelFormat::Rgb), ElementsAre(0xFF123456U, 0xFF000000U));
}

TEST(Alpha, Premultiplying_leaves_pixels_alone_that_somebody_else_holds) {
  const Pixels pixels = Two(0x80FF8001, 0x00FFFFFF);
  EXPECT_NE(Premultiplied(pixels).Data(), pixels.Data());
  EXPECT_THAT(WordsOf(pixels), ElementsAre(0x80FF8001U, 0x00FFFFFFU));
}

TEST(Alpha, Premultiplying_pixels_of_nobody_else_takes_no_others) {
  Pixels pixels = Two(0x80FF8001, 0x00FFFFFF);
  const std::uint32_t* const place = pixels.Data();
  EXPECT_EQ(Premultiplied(std::move(pixels)).Data(), place);
}

TEST(Alpha, Opaque_pixels_are_shared_not_copied) {
  const Pixels pixels = Two(0xFF000000, 0xFFFFFFFF, PixelFormat::Rgb);
  EXPECT_EQ(Premultiplied(pixels).Data(), pixels.Data());
}

}  // namespace
}  // namespace lumidex
