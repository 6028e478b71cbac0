#include "pictures/codecs/iff_true_colour.h"

#include <gmock/gmock.h>

#include "base/run_time_error.h"
#include "gallery/encoders/iff_encoder.h"
#include "pictures/support/iff_file.h"
#include "pictures/support/patterns.h"

namespace lumidex::iff {
namespace {

using testing::ElementsAre;

TEST(IffTrueColour, Runs_of_colours_come_back) {
  const Pixels pattern = ColourPattern({37, 23});
  const auto file = EncodeColourRuns(pattern);
  EXPECT_EQ(OpenBytes(file)->Facts().bitsPerPixel, 24);
  EXPECT_EQ(WordsOf(DecodeBytes(file)), WordsOf(pattern));
}

TEST(IffTrueColour, Deep_pictures_come_back) {
  for (const auto form : {IffForm::Plain, IffForm::Packed}) {
    for (const auto format : {PixelFormat::Rgb, PixelFormat::Argb}) {
      const Pixels pattern = ColourPattern({37, 23}, format);
      const auto file = EncodeDeep(pattern, form);
      EXPECT_EQ(OpenBytes(file)->Facts().bitsPerPixel, format == PixelFormat::Rgb ? 24 : 32);
      EXPECT_EQ(WordsOf(DecodeBytes(file)), WordsOf(pattern));
    }
  }
}

TEST(IffTrueColour, Colours_may_come_in_runs_of_24_bits) {
  ByteWriter body;
  body.U32Be(0x11223302).U32Be(0x44556680).U8(3).U32Be(0x77889900).U8(0).U16Be(1);
  const auto file =
      Group("FORM", "RGB8",
            {BitmapHeader({.width = 3, .height = 2, .planes = 25, .compression = 4}), Chunk("BODY", body)});
  EXPECT_EQ(DepthIn(file), 24);
  EXPECT_THAT(WordsIn(file),
              ElementsAre(0xFF112233U, 0xFF112233U, 0xFF445566U, 0xFF445566U, 0xFF445566U, 0xFF778899U));
}

TEST(IffTrueColour, Colours_may_come_in_runs_of_12_bits) {
  ByteWriter body;
  body.U16Be(0x1232).U16Be(0x4568).U8(0).U16Be(500);
  const auto file =
      Group("FORM", "RGBN",
            {BitmapHeader({.width = 2, .height = 2, .planes = 13, .compression = 4}), Chunk("BODY", body)});
  EXPECT_EQ(DepthIn(file), 16);
  EXPECT_THAT(WordsIn(file), ElementsAre(0xFF112233U, 0xFF112233U, 0xFF445566U, 0xFF445566U));
}

TEST(IffTrueColour, Runs_of_colours_that_are_cut_leave_their_rows_blank) {
  const auto file = Group("FORM", "RGB8",
                          {BitmapHeader({.width = 2, .height = 2, .planes = 25, .compression = 4}),
                           Chunk("BODY", ByteWriter().U32Be(0x11223303))});
  EXPECT_THAT(WordsIn(file), ElementsAre(0xFF112233U, 0xFF112233U, blankPixel, blankPixel));
}

// `elements`: pairs of what stands there and its bits.
ByteWriter Deep(unsigned compression, std::initializer_list<std::uint32_t> elements, const ByteWriter& body,
                unsigned bits = 8) {
  ByteWriter screen, place, pixel;
  screen.U16Be(640).U16Be(480).U16Be(compression).U8(1).U8(1);
  place.U16Be(2).U16Be(2).U32Be(0);
  pixel.U32Be(static_cast<std::uint32_t>(elements.size()));
  for (const std::uint32_t element : elements) pixel.U16Be(element).U16Be(bits);
  return Group("FORM", "DEEP",
               {Chunk("DGBL", screen), Chunk("DPEL", pixel), Chunk("DLOC", place), Chunk("DBOD", body)});
}

TEST(IffTrueColour, Runs_of_colours_of_other_kinds_are_refused) {
  const auto open = [](const Header& header) {
    return OpenBytes(Group("FORM", "RGB8", {BitmapHeader(header), Chunk("BODY", Bytes({0}))}).Bytes());
  };
  EXPECT_NO_THROW(open({.planes = 25, .compression = 4}));
  EXPECT_THROW(open({.planes = 24, .compression = 4}), RunTimeError);
  EXPECT_THROW(open({.planes = 25, .compression = 1}), RunTimeError);
}

TEST(IffTrueColour, Deep_pictures_tell_what_their_bytes_are) {
  const auto file = Deep(0, {1, 2, 3}, Bytes({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}));
  EXPECT_EQ(DepthIn(file), 24);
  EXPECT_THAT(WordsIn(file), ElementsAre(0xFF010203U, 0xFF040506U, 0xFF070809U, 0xFF0A0B0CU));
  // Alpha first, something unknown behind it.
  const auto clear =
      Deep(0, {4, 9, 3, 2, 1}, Bytes({255, 0, 3, 2, 1, 128, 0, 6, 5, 4, 0, 0, 9, 8, 7, 255, 0, 12, 11, 10}));
  EXPECT_THAT(WordsIn(clear), ElementsAre(0xFF010203U, 0x80040506U, 0U, 0xFF0A0B0CU));
}

TEST(IffTrueColour, Deep_pictures_may_be_packed_by_whole_pixels) {
  const auto file = Deep(1, {1, 2, 3}, Bytes({0xFE, 1, 2, 3, 0, 4, 5, 6}));
  EXPECT_THAT(WordsIn(file), ElementsAre(0xFF010203U, 0xFF010203U, 0xFF010203U, 0xFF040506U));
}

TEST(IffTrueColour, Deep_pictures_may_be_coded_by_steps_from_pixel_to_pixel) {
  ByteWriter screen, elements, steps;
  screen.U16Be(3).U16Be(2).U16Be(5).U16Be(0);
  elements.U32Be(3).U16Be(1).U16Be(8).U16Be(2).U16Be(8).U16Be(3).U16Be(8);
  steps.U16Be(0).U16Be(1).U16Be(0xFFFF).U16Be(100).Fill(24);
  const auto open = [&](const ByteWriter& body) {
    return Group("FORM", "DEEP",
                 {Chunk("DGBL", screen), Chunk("DPEL", elements), Chunk("TVDC", steps), Chunk("DBOD", body)});
  };
  // Red 1, 0, 100; green 100 three times; blue 0 three times. Then red alone.
  const auto file = open(Bytes({0x12, 0x30, 0x30, 0x10, 0x02, 0x11, 0x10}));
  EXPECT_THAT(WordsIn(file),
              ElementsAre(0xFF016400U, 0xFF006400U, 0xFF646400U, blankPixel, blankPixel, blankPixel));
  const auto whole = open(Bytes({0x12, 0x30, 0x30, 0x10, 0x02, 0x11, 0x10, 0x02, 0x02}));
  EXPECT_EQ(WordsIn(whole)[5], 0xFF030000U);
}

TEST(IffTrueColour, Deep_pictures_of_other_kinds_are_refused) {
  EXPECT_THROW(OpenBytes(Deep(2, {1, 2, 3}, Bytes({0})).Bytes()), RunTimeError);
  EXPECT_THROW(OpenBytes(Deep(0, {}, Bytes({0})).Bytes()), RunTimeError);
  EXPECT_THROW(OpenBytes(Deep(0, {1, 2, 3}, Bytes({0}), 16).Bytes()), RunTimeError);
}

}  // namespace
}  // namespace lumidex::iff
