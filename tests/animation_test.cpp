// The animation of the search window: what is written can be read, and what was built plays.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "animation/avi_encoder.h"
#include "pictures/animation_file.h"

namespace lumidex {
namespace {

constexpr std::uint32_t red = 0xFFFF0000, green = 0xFF00FF00;

IndexedPicture Frame(std::vector<std::uint8_t> indices) {
  IndexedPicture frame{{3, 2}, {red, green}, std::move(indices)};
  // Beyond sixteen colours, since shorter palettes are coded with four bits.
  frame.palette.resize(17, 0xFF000000);
  return frame;
}

TEST(AviEncoder, Frames_come_back_as_they_were) {
  const AnimationFile file(EncodeAvi({Frame({0, 0, 0, 1, 1, 1}), Frame({1, 0, 1, 0, 1, 0})}, 40));
  EXPECT_EQ(file.FrameCount(), 2);
  EXPECT_EQ(file.MillisecondsPerFrame(), 40);
  EXPECT_EQ(file.FrameSize(), (Size{3, 2}));
  Pixels shown;
  file.Advance(shown, 0);
  EXPECT_EQ(shown.Row(0)[2], red);
  EXPECT_EQ(shown.Row(1)[0], green);
  file.Advance(shown, 1);
  EXPECT_EQ(shown.Row(0)[0], green);
  EXPECT_EQ(shown.Row(0)[1], red);
  EXPECT_EQ(shown.Row(1)[2], red);
}

TEST(AviEncoder, An_animation_needs_a_frame) {
  EXPECT_THROW(EncodeAvi({}, 40), std::invalid_argument);
}

TEST(Findcomp, Every_frame_differs_from_the_one_before_and_its_corner_is_ground) {
  std::ifstream stream(LUMIDEX_FINDCOMP, std::ios::binary);
  const std::vector<std::uint8_t> bytes{std::istreambuf_iterator<char>(stream), {}};
  const AnimationFile file(bytes);
  EXPECT_EQ(file.FrameCount(), 16);
  std::vector<std::uint32_t> before;
  Pixels shown;
  for (int number = 0; number < file.FrameCount(); ++number) {
    file.Advance(shown, number);
    std::vector<std::uint32_t> pixels;
    for (int y = 0; y < shown.Height(); ++y) {
      pixels.insert(pixels.end(), shown.Row(y).begin(), shown.Row(y).end());
    }
    EXPECT_EQ(pixels.front(), 0xFF008080U);
    EXPECT_NE(pixels, before);
    before = std::move(pixels);
  }
}

}  // namespace
}  // namespace lumidex
