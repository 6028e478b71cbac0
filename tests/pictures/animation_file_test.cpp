#include "pictures/animation_file.h"

#include <gtest/gtest.h>

#include "number_raised.h"
#include "pictures/support/avi_file.h"
#include "pictures/support/colours.h"

namespace lumidex::animation_file {
namespace {

using argb::red, argb::green, argb::blue;

// Two pixels of 24 bits, padded to 4 bytes.
FileBytes PlainRow(std::uint32_t left, std::uint32_t right) {
  FileBytes row;
  for (const std::uint32_t pixel : {left, right}) {
    for (int shift = 0; shift < 24; shift += 8) row.push_back(static_cast<std::uint8_t>(pixel >> shift));
  }
  row.resize(8);
  return row;
}

AviFile TwoFrames() {
  AviFile file;
  file.frames = {PlainRow(red, green), PlainRow(blue, green)};
  return file;
}

AviFile RunLengths() {
  AviFile file;
  file.bitsPerPixel = 8;
  file.coding = 1;
  file.palette = {0, 0, 255, 0, 0, 255, 0, 0, 255, 0, 0, 0};  // red, green, blue
  file.frames = {{2, 1, 0, 1}, {1, 0, 0, 1}, {0, 2, 1, 0, 1, 2, 0, 1}};
  return file;
}

int RefusedWith(FileBytes bytes) {
  return NumberRaisedBy([&] { AnimationFile file(std::move(bytes)); });
}

TEST(AnimationFileTest, Frames_come_at_their_pace) {
  const AnimationFile file(TwoFrames().Bytes());
  EXPECT_EQ(file.FrameCount(), 2);
  EXPECT_EQ(file.MillisecondsPerFrame(), 40);
  EXPECT_EQ(file.FrameSize(), (Size{2, 1}));
  Pixels shown;
  file.Advance(shown, 0);
  EXPECT_EQ(shown.Row(0)[0], red);
  EXPECT_EQ(shown.Row(0)[1], green);
  file.Advance(shown, 1);
  EXPECT_EQ(shown.Row(0)[0], blue);
}

TEST(AnimationFileTest, A_run_length_frame_changes_the_one_before) {
  const AnimationFile file(RunLengths().Bytes());
  Pixels shown;
  file.Advance(shown, 0);
  EXPECT_EQ(shown.Row(0)[0], green);
  EXPECT_EQ(shown.Row(0)[1], green);
  file.Advance(shown, 1);
  EXPECT_EQ(shown.Row(0)[0], red);
  EXPECT_EQ(shown.Row(0)[1], green);
  file.Advance(shown, 2);
  EXPECT_EQ(shown.Row(0)[0], red);
  EXPECT_EQ(shown.Row(0)[1], blue);
  // The first frame starts anew.
  file.Advance(shown, 0);
  EXPECT_EQ(shown.Row(0)[0], green);
}

TEST(AnimationFileTest, An_empty_chunk_repeats_the_frame) {
  AviFile avi = TwoFrames();
  avi.frames[1].clear();
  const AnimationFile file(avi.Bytes());
  Pixels shown;
  file.Advance(shown, 0);
  file.Advance(shown, 1);
  EXPECT_EQ(shown.Row(0)[0], red);
}

TEST(AnimationFileTest, Frames_that_are_called_compressed_count_as_well) {
  AviFile avi = RunLengths();
  avi.frameKind = "00dc";
  EXPECT_EQ(AnimationFile(avi.Bytes()).FrameCount(), 3);
  avi.frameKind = "01wb";
  EXPECT_EQ(RefusedWith(avi.Bytes()), 481);
}

TEST(AnimationFileTest, The_pace_is_never_too_fast) {
  AviFile avi = TwoFrames();
  avi.microsecondsPerFrame = 1;
  EXPECT_EQ(AnimationFile(avi.Bytes()).MillisecondsPerFrame(), 10);
}

TEST(AnimationFileTest, What_is_no_animation_is_refused) {
  EXPECT_EQ(RefusedWith({}), 481);
  EXPECT_EQ(RefusedWith(AviFile::Text("RIFF1234WAVE")), 481);
  EXPECT_EQ(RefusedWith(AviFile::Text("RIFF1234AVI ")), 481);
  AviFile other = TwoFrames();
  other.coding = 0x34363248;
  EXPECT_EQ(RefusedWith(other.Bytes()), 481);
  other = TwoFrames();
  other.width = 100000;
  EXPECT_EQ(RefusedWith(other.Bytes()), 481);
}

TEST(AnimationFileTest, A_file_that_is_cut_anywhere_shows_what_is_there) {
  for (const AviFile& avi : {TwoFrames(), RunLengths()}) {
    const FileBytes whole = avi.Bytes();
    int played = 0;
    for (std::size_t length = 0; length <= whole.size(); ++length) {
      try {
        const AnimationFile file(
            FileBytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)));
        Pixels shown;
        for (int frame = 0; frame < file.FrameCount(); ++frame) file.Advance(shown, frame);
        EXPECT_EQ(shown.GetSize(), (Size{2, 1}));
        ++played;
      } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::InvalidPicture);
      }
    }
    EXPECT_GT(played, 10);
  }
}

TEST(AnimationFileTest, The_ground_becomes_transparent) {
  Pixels pixels = Pixels::Make({2, 1}, PixelFormat::Rgb, red);
  pixels.Row(0)[1] = green;
  ClearGround(pixels, red);
  EXPECT_EQ(pixels.Row(0)[0], 0U);
  EXPECT_EQ(pixels.Row(0)[1], green);
  EXPECT_EQ(pixels.Format(), PixelFormat::Argb);
}

}  // namespace
}  // namespace lumidex::animation_file
