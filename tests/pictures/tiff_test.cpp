#include "pictures/codecs/tiff.h"

#include <gmock/gmock.h>

#include <bit>

#include "base/run_time_error.h"
#include "pictures/support/byte_writer.h"
#include "pictures/support/library_writers.h"

namespace lumidex {
namespace {

OpenOptions AsStored() {
  OpenOptions options;
  options.asStored = true;
  return options;
}

using testing::Each;
using testing::ElementsAre;

constexpr unsigned Orientations = 274, PlanarConfiguration = 284, ExtraSamples = 338, SampleFormat = 339;
constexpr unsigned Grey = 1, Colour = 2, Positions = 3, Inks = 5;

struct Tag {
  unsigned number;
  std::vector<std::uint32_t> values;  // shorts
};

struct Layout {
  std::uint32_t width = 1, height = 1;
  unsigned bits = 8, samples = 1, photometric = Grey;
  std::vector<Tag> more = {};
};

// Uncompressed, in one strip (or one for each plane), little-endian.
std::vector<std::uint8_t> File(const Layout& layout, const std::vector<std::uint8_t>& pixels,
                               unsigned strips = 1) {
  const std::uint32_t stripBytes = static_cast<std::uint32_t>(pixels.size() / strips);
  std::vector<std::uint32_t> offsets, counts;
  for (unsigned i = 0; i < strips; ++i) {
    offsets.push_back(8 + i * stripBytes);
    counts.push_back(stripBytes);
  }
  std::vector<Tag> tags = {{256, {layout.width}},
                           {257, {layout.height}},
                           {258, std::vector<std::uint32_t>(layout.samples, layout.bits)},
                           {259, {1}},
                           {262, {layout.photometric}},
                           {273, offsets},
                           {277, {layout.samples}},
                           {278, {layout.height}},
                           {279, counts}};
  tags.insert(tags.end(), layout.more.begin(), layout.more.end());
  std::ranges::sort(tags, {}, &Tag::number);
  const auto directory = static_cast<std::uint32_t>(8 + (pixels.size() + 1) / 2 * 2);
  ByteWriter file, far;
  file.Text("II").U16Le(42).U32Le(directory).Add(pixels).Fill(pixels.size() % 2);
  file.U16Le(static_cast<unsigned>(tags.size()));
  const auto farStart = static_cast<std::uint32_t>(directory + 2 + 12 * tags.size() + 4);
  for (const Tag& tag : tags) {
    file.U16Le(tag.number).U16Le(3).U32Le(static_cast<std::uint32_t>(tag.values.size()));
    if (tag.values.size() > 2) {
      file.U32Le(farStart + static_cast<std::uint32_t>(far.Size()));
      for (const std::uint32_t value : tag.values) far.U16Le(value);
    } else {
      file.U16Le(tag.values[0]).U16Le(tag.values.size() > 1 ? tag.values[1] : 0);
    }
  }
  return file.U32Le(0).Add(far.Bytes()).Bytes();
}

TEST(Tiff, Grey_may_count_from_white_or_from_black) {
  EXPECT_THAT(WordsOf(DecodeBytes(File({.width = 2}, {0, 200}))), ElementsAre(0xFF000000U, 0xFFC8C8C8U));
  EXPECT_THAT(WordsOf(DecodeBytes(File({.width = 2, .photometric = 0}, {0, 200}))),
              ElementsAre(0xFFFFFFFFU, 0xFF373737U));
}

TEST(Tiff, Samples_of_every_width_are_read) {
  EXPECT_THAT(WordsOf(DecodeBytes(File({.width = 3, .bits = 1}, {0xA0}))),
              ElementsAre(0xFFFFFFFFU, 0xFF000000U, 0xFFFFFFFFU));
  EXPECT_THAT(WordsOf(DecodeBytes(File({.width = 2, .bits = 4}, {0xF8}))),
              ElementsAre(0xFFFFFFFFU, 0xFF888888U));
  EXPECT_THAT(WordsOf(DecodeBytes(File({.width = 2, .bits = 12}, {0x80, 0x04, 0x00}))),
              ElementsAre(0xFF7F7F7FU, 0xFF3F3F3FU));
  EXPECT_THAT(WordsOf(DecodeBytes(File({.bits = 16}, {0x00, 0x80}))), ElementsAre(0xFF808080U));
  EXPECT_THAT(WordsOf(DecodeBytes(File({.bits = 24}, {0, 0, 0x42}))), ElementsAre(0xFF424242U));
  EXPECT_THAT(WordsOf(DecodeBytes(File({.bits = 32}, {0xFF, 0xFF, 0xFF, 0xFF}))), ElementsAre(0xFFFFFFFFU));
}

TEST(Tiff, Numbers_with_a_point_run_from_zero_to_one) {
  ByteWriter numbers;
  for (const float value : {0.0F, 0.5F, 1.0F}) numbers.U32Le(std::bit_cast<std::uint32_t>(value));
  const auto file = File({.width = 3, .bits = 32, .more = {{SampleFormat, {3}}}}, numbers.Bytes());
  EXPECT_THAT(WordsOf(DecodeBytes(file)), ElementsAre(0xFF000000U, 0xFF808080U, 0xFFFFFFFFU));
}

TEST(Tiff, Numbers_beyond_one_show_the_whole_of_their_range) {
  ByteWriter numbers;
  for (const float value : {0.0F, 50.0F, 100.0F}) numbers.U32Le(std::bit_cast<std::uint32_t>(value));
  const auto file = File({.width = 3, .bits = 32, .more = {{SampleFormat, {3}}}}, numbers.Bytes());
  EXPECT_THAT(WordsOf(DecodeBytes(file)), ElementsAre(0xFF000000U, 0xFF808080U, 0xFFFFFFFFU));
}

TEST(Tiff, Planes_are_put_together) {
  const Layout layout{.width = 2, .samples = 3, .photometric = Colour, .more = {{PlanarConfiguration, {2}}}};
  EXPECT_THAT(WordsOf(DecodeBytes(File(layout, {1, 2, 3, 4, 5, 6}, 3))),
              ElementsAre(0xFF010305U, 0xFF020406U));
}

TEST(Tiff, Straight_alpha_stays_and_premultiplied_alpha_is_divided_out) {
  Layout layout{.samples = 4, .photometric = Colour, .more = {{ExtraSamples, {2}}}};
  EXPECT_THAT(WordsOf(DecodeBytes(File(layout, {10, 20, 30, 128}))), ElementsAre(0x800A141EU));
  layout.more = {{ExtraSamples, {1}}};
  EXPECT_THAT(WordsOf(DecodeBytes(File(layout, {64, 32, 0, 128}))), ElementsAre(0x807F3F00U));
  layout.more = {{ExtraSamples, {0}}};
  EXPECT_THAT(WordsOf(DecodeBytes(File(layout, {10, 20, 30, 128}))), ElementsAre(0xFF0A141EU));
}

TEST(Tiff, Inks_take_away_light) {
  EXPECT_THAT(WordsOf(DecodeBytes(File({.samples = 4, .photometric = Inks}, {0, 255, 255, 0}))),
              ElementsAre(0xFFFF0000U));
}

TEST(Tiff, Positions_take_their_colours_from_the_map) {
  const Layout layout{
      .width = 2, .bits = 1, .photometric = Positions, .more = {{320, {0xFF00, 0, 0, 0x8000, 0, 0xFFFF}}}};
  EXPECT_THAT(WordsOf(DecodeBytes(File(layout, {0x40}))), ElementsAre(0xFFFF0000U, 0xFF0080FFU));
}

TEST(Tiff, The_orientation_mark_turns_size_and_pixels) {
  const auto file = File({.width = 2, .more = {{Orientations, {6}}}}, {1, 2});
  EXPECT_EQ(OpenBytes(file)->Facts().size, (Size{1, 2}));
  EXPECT_THAT(WordsOf(DecodeBytes(file)), ElementsAre(0xFF010101U, 0xFF020202U));
  EXPECT_EQ(DecodeBytes(file, ".tif", AsStored()).GetSize(), (Size{2, 1}));
}

TEST(Tiff, Depth_is_what_a_bitmap_can_hold) {
  const std::vector<std::uint8_t> pixels(64);
  EXPECT_EQ(OpenBytes(File({.bits = 1}, pixels))->Facts().bitsPerPixel, 1);
  EXPECT_EQ(OpenBytes(File({.bits = 6}, pixels))->Facts().bitsPerPixel, 8);
  EXPECT_EQ(OpenBytes(File({.bits = 12}, pixels))->Facts().bitsPerPixel, 16);
  EXPECT_EQ(OpenBytes(File({.samples = 3, .photometric = Colour}, pixels))->Facts().bitsPerPixel, 24);
  EXPECT_EQ(OpenBytes(File({.bits = 16, .samples = 3, .photometric = Colour}, pixels))->Facts().bitsPerPixel,
            24);
  EXPECT_EQ(OpenBytes(File({.bits = 16, .samples = 4, .photometric = Colour}, pixels))->Facts().bitsPerPixel,
            32);
}

TEST(Tiff, What_cannot_be_decoded_is_refused_at_the_header) {
  const std::vector<std::uint8_t> pixels(64);
  EXPECT_THROW(OpenBytes(File({.width = 32768}, pixels)), RunTimeError);
  EXPECT_THROW(OpenBytes(File({.height = 32768}, pixels)), RunTimeError);
  EXPECT_THROW(OpenBytes(File({.width = 32767, .height = 32767}, pixels)), RunTimeError);
  EXPECT_THROW(OpenBytes(File({.bits = 17}, pixels)), RunTimeError);
  EXPECT_THROW(OpenBytes(File({.samples = 40}, pixels)), RunTimeError);
}

TEST(Tiff, Rows_that_the_file_lacks_stay_blank) {
  auto file = File({.width = 4, .height = 4}, std::vector<std::uint8_t>(16, 9));
  ASSERT_THAT(WordsOf(DecodeBytes(file)), Each(0xFF090909U));
  // The strip's offset is the first value behind the sixth entry; it now points past the end.
  const std::size_t entry = 8 + 16 + 2 + 5 * 12 + 8;
  ASSERT_EQ(file[entry], 8);
  file[entry + 1] = 0x40;
  EXPECT_THAT(WordsOf(DecodeBytes(file)), Each(blankPixel));
}

}  // namespace
}  // namespace lumidex
