#include "pictures/codecs/gif.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <span>

#include "base/run_time_error.h"
#include "gallery/encoders/gif_encoder.h"
#include "pictures/support/byte_writer.h"
#include "pictures/support/colours.h"
#include "pictures/support/patterns.h"

namespace lumidex::gif {
namespace {

using testing::Each;
using testing::ElementsAre;

using argb::black, argb::red, argb::green, argb::blue;

// A screen with a table of four colours.
ByteWriter Screen(unsigned width, unsigned height) {
  ByteWriter file;
  file.Text("GIF89a").U16Le(width).U16Le(height).Add({0x81, 0, 0});
  file.Add({0, 0, 0, 255, 0, 0, 0, 255, 0, 0, 0, 255});
  return file;
}

// Codes of three bits, with a clear code before every second pixel so that they never grow.
void AddPixels(ByteWriter& file, const std::vector<unsigned>& pixels) {
  constexpr unsigned clear = 4, end = 5;
  std::vector<std::uint8_t> bytes;
  unsigned pending = 0, have = 0;
  const auto put = [&](unsigned code) {
    pending |= code << have;
    for (have += 3; have >= 8; have -= 8, pending >>= 8) bytes.push_back(static_cast<std::uint8_t>(pending));
  };
  for (std::size_t i = 0; i < pixels.size(); ++i) {
    if (i % 2 == 0) put(clear);
    put(pixels[i]);
  }
  put(end);
  if (have > 0) bytes.push_back(static_cast<std::uint8_t>(pending));
  file.U8(2);
  constexpr std::size_t blockBytes = 8;
  for (std::size_t i = 0; i < bytes.size(); i += blockBytes) {
    const auto block = std::span(bytes).subspan(i, std::min(blockBytes, bytes.size() - i));
    file.U8(static_cast<unsigned>(block.size())).Append(block);
  }
  file.U8(0);
}

void AddFrame(ByteWriter& file, unsigned left, unsigned top, unsigned width, unsigned height, bool interlaced,
              const std::vector<unsigned>& pixels) {
  file.U8(0x2C).U16Le(left).U16Le(top).U16Le(width).U16Le(height).U8(interlaced ? 0x40 : 0);
  AddPixels(file, pixels);
}

void AddTransparency(ByteWriter& file, unsigned colour) {
  file.Add({0x21, 0xF9, 4, 1, 0, 0, colour, 0});
}

TEST(Gif, Colours_come_from_the_table) {
  auto file = Screen(4, 1);
  AddFrame(file, 0, 0, 4, 1, false, {0, 1, 2, 3});
  EXPECT_THAT(WordsOf(DecodeBytes(file.U8(0x3B).Bytes())), ElementsAre(black, red, green, blue));
}

TEST(Gif, A_small_first_frame_stands_on_a_transparent_screen) {
  auto file = Screen(3, 2);
  AddFrame(file, 1, 1, 2, 1, false, {1, 2});
  const auto decoder = OpenBytes(file.U8(0x3B).Bytes());
  EXPECT_EQ(decoder->Facts().size, (Size{3, 2}));
  EXPECT_THAT(WordsOf(decoder->Decode({})), ElementsAre(0U, 0U, 0U, 0U, red, green));
}

TEST(Gif, A_frame_that_reaches_beyond_the_screen_is_cut) {
  auto file = Screen(2, 1);
  AddFrame(file, 1, 0, 2, 1, false, {1, 2});
  EXPECT_THAT(WordsOf(DecodeBytes(file.U8(0x3B).Bytes())), ElementsAre(0U, red));
  auto interlaced = Screen(1, 8);
  AddFrame(interlaced, 0, 6, 1, 8, true, {1, 3, 3, 3, 2, 3, 3, 3});
  EXPECT_THAT(WordsOf(DecodeBytes(interlaced.U8(0x3B).Bytes())),
              ElementsAre(0U, 0U, 0U, 0U, 0U, 0U, red, green));
}

TEST(Gif, A_first_frame_larger_than_the_screen_is_shown_whole) {
  auto file = Screen(2, 1);
  AddFrame(file, 1, 0, 3, 2, false, {1, 2, 3, 1, 1, 1});
  const auto decoder = OpenBytes(file.U8(0x3B).Bytes());
  EXPECT_EQ(decoder->Facts().size, (Size{4, 2}));
  EXPECT_THAT(WordsOf(decoder->Decode({})), ElementsAre(0U, red, green, blue, 0U, red, red, red));
}

TEST(Gif, A_first_frame_too_large_for_any_picture_is_cut_at_its_screen) {
  auto file = Screen(2, 1);
  AddFrame(file, 0, 0, 65535, 65535, false, {1, 2, 3, 1, 1, 1});
  EXPECT_THAT(WordsOf(DecodeBytes(file.U8(0x3B).Bytes())), ElementsAre(red, green));
}

// Codes as wide as `plainBits` asks for, growing as the dictionary does.
std::vector<std::uint8_t> Coded(unsigned plainBits, const std::vector<unsigned>& pixels) {
  std::vector<std::uint8_t> bytes;
  unsigned width = plainBits + 1, pending = 0, have = 0;
  const auto put = [&](unsigned code) {
    pending |= code << have;
    for (have += width; have >= 8; have -= 8, pending >>= 8)
      bytes.push_back(static_cast<std::uint8_t>(pending));
  };
  put(1U << plainBits);
  unsigned next = (1U << plainBits) + 2;
  for (std::size_t i = 0; i < pixels.size(); ++i) {
    put(pixels[i]);
    if (i > 0 && ++next == 1U << width && width < 12) ++width;
  }
  put((1U << plainBits) + 1);
  if (have > 0) bytes.push_back(static_cast<std::uint8_t>(pending));
  return bytes;
}

TEST(Gif, Codes_may_begin_wider_than_any_palette_needs) {
  for (const unsigned plainBits : {1U, 2U, 5U, 8U, 9U, 10U, 11U}) {
    auto file = Screen(2, 2);
    file.U8(0x2C).U16Le(0).U16Le(0).U16Le(2).U16Le(2).U8(0).U8(plainBits);
    const auto bytes = Coded(plainBits, {1, 0, 1, 1});
    file.U8(static_cast<unsigned>(bytes.size())).Append(bytes).U8(0);
    EXPECT_THAT(WordsOf(DecodeBytes(file.U8(0x3B).Bytes())), ElementsAre(red, black, red, red)) << plainBits;
  }
}

TEST(Gif, Codes_of_more_bits_than_there_are_leave_the_screen_transparent) {
  for (const unsigned plainBits : {0U, 12U, 255U}) {
    auto file = Screen(2, 1);
    file.U8(0x2C).U16Le(0).U16Le(0).U16Le(2).U16Le(1).U8(0).Add({plainBits, 3, 1, 2, 3, 0, 0x3B});
    EXPECT_THAT(WordsOf(DecodeBytes(file.Bytes())), ElementsAre(0U, 0U)) << plainBits;
  }
}

TEST(Gif, Codes_grow_up_to_twelve_bits_and_strings_cross_rows) {
  // Long strings of one colour, read by rows that cut them.
  std::vector<unsigned> pixels(300 * 77);
  for (std::size_t i = 0; i < pixels.size(); ++i) pixels[i] = static_cast<unsigned>(i / 5000 % 4);
  IndexedPicture picture{{300, 77}, {0xFF000000, 0xFFFF0000, 0xFF00FF00, 0xFF0000FF}, {}};
  for (const unsigned pixel : pixels) picture.indices.push_back(static_cast<std::uint8_t>(pixel));
  EXPECT_EQ(WordsOf(DecodeBytes(EncodeGif(picture))), WordsOf(Expand(picture)));
  const IndexedPicture many = Stripes({311, 211}, DistinctColours(256));
  EXPECT_EQ(WordsOf(DecodeBytes(EncodeGif(many))), WordsOf(Expand(many)));
}

TEST(Gif, The_transparent_colour_is_not_drawn) {
  auto file = Screen(2, 1);
  AddTransparency(file, 1);
  AddFrame(file, 0, 0, 2, 1, false, {1, 2});
  EXPECT_THAT(WordsOf(DecodeBytes(file.U8(0x3B).Bytes())), ElementsAre(0U, green));
}

TEST(Gif, Interlaced_rows_come_in_four_passes) {
  auto file = Screen(1, 8);
  AddFrame(file, 0, 0, 1, 8, true, {0, 1, 2, 2, 3, 3, 3, 3});
  EXPECT_THAT(WordsOf(DecodeBytes(file.U8(0x3B).Bytes())),
              ElementsAre(black, blue, green, blue, red, blue, green, blue));
}

TEST(Gif, Rows_that_a_cut_file_lacks_are_transparent) {
  auto file = Screen(8, 8);
  AddFrame(file, 0, 0, 8, 8, false, std::vector<unsigned>(64, 1));
  auto bytes = file.Bytes();
  bytes.erase(bytes.end() - 20, bytes.end());
  const Pixels pixels = DecodeBytes(bytes);
  EXPECT_THAT(RowOf(pixels, 0), Each(red));
  EXPECT_THAT(RowOf(pixels, 7), Each(0U));
}

TEST(Gif, The_end_mark_may_be_missing) {
  auto file = Screen(2, 1);
  AddFrame(file, 0, 0, 2, 1, false, {1, 2});
  EXPECT_THAT(WordsOf(DecodeBytes(file.Bytes())), ElementsAre(red, green));
}

TEST(Gif, Bytes_behind_the_end_mean_nothing) {
  auto file = Screen(2, 1);
  AddFrame(file, 0, 0, 2, 1, false, {1, 2});
  EXPECT_THAT(WordsOf(DecodeBytes(file.U8(0x3B).Fill(50, 0x2C).Bytes())), ElementsAre(red, green));
}

TEST(Gif, Without_any_table_colours_are_greys) {
  ByteWriter file;
  file.Text("GIF87a").U16Le(2).U16Le(1).Add({0, 0, 0});
  AddFrame(file, 0, 0, 2, 1, false, {1, 3});
  EXPECT_EQ(OpenBytes(file.Bytes())->Facts().bitsPerPixel, 8);
  EXPECT_THAT(WordsOf(DecodeBytes(file.U8(0x3B).Bytes())), ElementsAre(0xFF010101U, 0xFF030303U));
}

TEST(Gif, Colours_beyond_the_table_are_black) {
  ByteWriter file;
  file.Text("GIF87a").U16Le(2).U16Le(1).Add({0x80, 0, 0, 255, 0, 0, 0, 255, 0});  // a table of two
  AddFrame(file, 0, 0, 2, 1, false, {0, 3});
  EXPECT_THAT(WordsOf(DecodeBytes(file.U8(0x3B).Bytes())), ElementsAre(red, black));
}

TEST(Gif, A_frame_without_a_size_leaves_the_screen_transparent) {
  auto file = Screen(2, 1);
  AddFrame(file, 0, 0, 0, 0, false, {});
  EXPECT_THAT(WordsOf(DecodeBytes(file.U8(0x3B).Bytes())), ElementsAre(0U, 0U));
}

TEST(Gif, A_frame_beside_the_screen_leaves_it_transparent) {
  auto file = Screen(2, 1);
  AddFrame(file, 5, 5, 1, 1, false, {1});
  EXPECT_THAT(WordsOf(DecodeBytes(file.U8(0x3B).Bytes())), ElementsAre(0U, 0U));
}

TEST(Gif, A_screen_without_a_size_is_as_large_as_the_frame) {
  auto file = Screen(0, 0);
  AddFrame(file, 0, 0, 2, 1, false, {1, 2});
  EXPECT_THAT(WordsOf(DecodeBytes(file.U8(0x3B).Bytes())), ElementsAre(red, green));
}

TEST(Gif, Depth_is_that_of_the_first_frames_table) {
  auto file = Screen(1, 1);
  EXPECT_EQ(OpenBytes(file.Bytes())->Facts().bitsPerPixel, 2);
  file.U8(0x2C).U16Le(0).U16Le(0).U16Le(1).U16Le(1).U8(0x82).Fill(24);
  AddPixels(file, {1});
  EXPECT_EQ(OpenBytes(file.U8(0x3B).Bytes())->Facts().bitsPerPixel, 4);
}

TEST(Gif, Screens_beyond_the_limits_are_refused) {
  EXPECT_THROW(OpenBytes(Screen(32768, 1).Bytes()), RunTimeError);
  EXPECT_THROW(OpenBytes(Screen(32767, 32767).Bytes()), RunTimeError);
  EXPECT_THROW(OpenBytes(Screen(0, 1).Bytes()), RunTimeError);
}

}  // namespace
}  // namespace lumidex::gif
