#include "pictures/orientation.h"

#include <gmock/gmock.h>

#include "pictures/exif.h"
#include "pictures/support/byte_writer.h"

namespace lumidex {
namespace {

using testing::ElementsAre;

// 1 2 3
// 4 5 6
Pixels Six() {
  Pixels pixels = Pixels::Make({3, 2}, PixelFormat::Argb, 0);
  std::uint32_t next = 1;
  for (int y = 0; y < 2; ++y) {
    for (auto& word : pixels.Row(y)) word = next++;
  }
  return pixels;
}

std::vector<std::uint32_t> TurnedSix(Orientation orientation) {
  return WordsOf(Turned(Six(), orientation));
}

TEST(Orientation, Each_of_the_eight_puts_every_pixel_in_its_place) {
  EXPECT_THAT(TurnedSix(Orientation::Upright), ElementsAre(1, 2, 3, 4, 5, 6));
  EXPECT_THAT(TurnedSix(Orientation::MirrorLeftRight), ElementsAre(3, 2, 1, 6, 5, 4));
  EXPECT_THAT(TurnedSix(Orientation::HalfTurn), ElementsAre(6, 5, 4, 3, 2, 1));
  EXPECT_THAT(TurnedSix(Orientation::MirrorTopBottom), ElementsAre(4, 5, 6, 1, 2, 3));
  EXPECT_THAT(TurnedSix(Orientation::Transpose), ElementsAre(1, 4, 2, 5, 3, 6));
  EXPECT_THAT(TurnedSix(Orientation::QuarterRight), ElementsAre(4, 1, 5, 2, 6, 3));
  EXPECT_THAT(TurnedSix(Orientation::Transverse), ElementsAre(6, 3, 5, 2, 4, 1));
  EXPECT_THAT(TurnedSix(Orientation::QuarterLeft), ElementsAre(3, 6, 2, 5, 1, 4));
}

TEST(Orientation, Turning_keeps_the_format_and_swaps_sides) {
  const Pixels turned = Turned(Six(), Orientation::QuarterRight);
  EXPECT_EQ(turned.GetSize(), (Size{2, 3}));
  EXPECT_EQ(turned.Format(), PixelFormat::Argb);
  EXPECT_EQ(TurnedSize({3, 2}, Orientation::HalfTurn), (Size{3, 2}));
}

// Blocks that do not fill the picture evenly must not lose its edges.
TEST(Orientation, Four_quarter_turns_of_an_odd_size_give_the_picture_back) {
  Pixels pixels = Pixels::Make({67, 131}, PixelFormat::Rgb, 0);
  std::uint32_t next = 0;
  for (int y = 0; y < pixels.Height(); ++y) {
    for (auto& word : pixels.Row(y)) word = next++;
  }
  Pixels turned = pixels;
  for (int i = 0; i < 4; ++i) turned = Turned(turned, Orientation::QuarterRight);
  EXPECT_EQ(WordsOf(turned), WordsOf(pixels));
  EXPECT_EQ(WordsOf(Turned(Turned(pixels, Orientation::QuarterRight), Orientation::QuarterLeft)),
            WordsOf(pixels));
  EXPECT_EQ(WordsOf(Turned(Turned(pixels, Orientation::Transverse), Orientation::Transverse)),
            WordsOf(pixels));
}

std::uint32_t Numbered(int x, int y) {
  return static_cast<std::uint32_t>(y) << 16 | static_cast<std::uint32_t>(x);
}

// Lines of sixteen, blocks of four and what is left of both, with rows that are aligned and rows that are
// not.
TEST(Orientation, Turning_and_mirroring_are_exact_at_every_size) {
  for (const Size size : {Size{16, 16},
                          {48, 32},
                          {50, 36},
                          {53, 37},
                          {7, 64},
                          {64, 5},
                          {33, 18},
                          {1, 40},
                          {9, 300},
                          {22, 517}}) {
    Pixels pixels = Pixels::Make(size, PixelFormat::Argb, 0);
    for (int y = 0; y < size.height; ++y) {
      for (int x = 0; x < size.width; ++x) pixels.Row(y)[static_cast<std::size_t>(x)] = Numbered(x, y);
    }
    const auto expectEach = [&](Orientation orientation, const auto& sourceOf) {
      const Pixels turned = Turned(pixels, orientation);
      for (int y = 0; y < turned.Height(); ++y) {
        for (int x = 0; x < turned.Width(); ++x) {
          ASSERT_EQ(turned.Row(y)[static_cast<std::size_t>(x)], sourceOf(x, y))
              << size.width << " x " << size.height << " at " << x << ", " << y;
        }
      }
    };
    const int lastX = size.width - 1, lastY = size.height - 1;
    expectEach(Orientation::MirrorLeftRight, [&](int x, int y) { return Numbered(lastX - x, y); });
    expectEach(Orientation::HalfTurn, [&](int x, int y) { return Numbered(lastX - x, lastY - y); });
    expectEach(Orientation::MirrorTopBottom, [&](int x, int y) { return Numbered(x, lastY - y); });
    expectEach(Orientation::Transpose, [&](int x, int y) { return Numbered(y, x); });
    expectEach(Orientation::QuarterRight, [&](int x, int y) { return Numbered(y, lastY - x); });
    expectEach(Orientation::Transverse, [&](int x, int y) { return Numbered(lastX - y, lastY - x); });
    expectEach(Orientation::QuarterLeft, [&](int x, int y) { return Numbered(lastX - y, x); });
  }
}

TEST(Orientation, Numbers_outside_one_to_eight_are_upright) {
  EXPECT_EQ(OrientationOf(0), Orientation::Upright);
  EXPECT_EQ(OrientationOf(9), Orientation::Upright);
  EXPECT_EQ(OrientationOf(8), Orientation::QuarterLeft);
}

TEST(Exif, The_mark_is_found_among_other_entries) {
  ByteWriter block;
  block.Text("II").U16Le(42).U32Le(10).U16Le(0).U16Le(2);
  block.U16Le(0x010F).U16Le(2).U32Le(1).U32Le(0).U16Le(0x0112).U16Le(3).U32Le(1).U32Le(5);
  EXPECT_EQ(ReadExifOrientation(block.Bytes()).orientation, Orientation::Transpose);
}

TEST(Exif, A_directory_past_the_end_is_said_to_be_beyond) {
  ByteWriter block;
  block.Text("MM").U16Be(42).U32Be(5000).Fill(100);
  EXPECT_TRUE(ReadExifOrientation(block.Bytes()).beyond);
  EXPECT_EQ(ReadExifOrientation(block.Bytes()).orientation, Orientation::Upright);
}

TEST(Exif, Other_bytes_are_upright) {
  EXPECT_EQ(ReadExifOrientation({}).orientation, Orientation::Upright);
  EXPECT_FALSE(ReadExifOrientation(std::vector<std::uint8_t>(40, 7)).beyond);
}

}  // namespace
}  // namespace lumidex
