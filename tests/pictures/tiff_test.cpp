#include "pictures/codecs/tiff.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <bit>
#include <limits>

#include "base/run_time_error.h"
#include "pictures/support/byte_writer.h"
#include "pictures/support/profiles.h"
#include "pictures/support/tiff_bytes.h"

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
constexpr unsigned Predictor = 317, InkSet = 332, ChromaSubsampling = 530, Profile = 34675;
constexpr unsigned Grey = 1, Colour = 2, Positions = 3, Inks = 5, LumaAndChroma = 6, Unsaid = 999;

struct Layout {
  std::uint32_t width = 1, height = 1;
  unsigned bits = 8, samples = 1, photometric = Grey;
  std::vector<TiffTag> more = {};
  unsigned compression = 1;
};

using Strips = std::vector<std::vector<std::uint8_t>>;

// In strips as they are given, which have `stripRows` rows (0: all).
std::vector<std::uint8_t> FileOf(const Layout& layout, const Strips& strips, unsigned stripRows = 0) {
  std::vector<std::uint8_t> pixels;
  std::vector<std::uint64_t> offsets, counts;
  for (const auto& strip : strips) {
    offsets.push_back(TiffPixelsAt({}) + pixels.size());
    counts.push_back(strip.size());
    pixels.insert(pixels.end(), strip.begin(), strip.end());
  }
  std::vector<TiffTag> tags = {{256, {layout.width}},
                               {257, {layout.height}},
                               {258, std::vector<std::uint64_t>(layout.samples, layout.bits)},
                               {259, {layout.compression}},
                               {273, offsets},
                               {277, {layout.samples}},
                               {278, {stripRows == 0 ? layout.height : stripRows}},
                               {279, counts}};
  if (layout.photometric != Unsaid) tags.push_back({262, {layout.photometric}});
  tags.insert(tags.end(), layout.more.begin(), layout.more.end());
  std::ranges::sort(tags, {}, &TiffTag::number);
  return TiffBytes(tags, pixels);
}

// Uncompressed, in one strip or in one for each plane.
std::vector<std::uint8_t> File(const Layout& layout, const std::vector<std::uint8_t>& pixels,
                               unsigned strips = 1) {
  Strips cut;
  const auto bytes = static_cast<std::ptrdiff_t>(pixels.size() / strips);
  for (unsigned i = 0; i < strips; ++i)
    cut.emplace_back(pixels.begin() + i * bytes, pixels.begin() + (i + 1) * bytes);
  return FileOf(layout, cut);
}

// Codes of nine bits, with a clear code often enough for them not to grow.
std::vector<std::uint8_t> Lzw(const std::vector<std::uint8_t>& bytes) {
  std::vector<std::uint8_t> coded;
  std::uint32_t pending = 0, have = 0;
  const auto put = [&](std::uint32_t code) {
    pending = pending << 9 | code;
    for (have += 9; have >= 8; have -= 8) coded.push_back(static_cast<std::uint8_t>(pending >> (have - 8)));
  };
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (i % 100 == 0) put(256);
    put(bytes[i]);
  }
  put(257);
  if (have > 0) coded.push_back(static_cast<std::uint8_t>(pending << (8 - have)));
  return coded;
}

std::vector<std::uint8_t> Floats(const std::vector<float>& values) {
  ByteWriter numbers;
  for (const float value : values) numbers.U32Le(std::bit_cast<std::uint32_t>(value));
  return numbers.Take();
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

// Greys of numbers with a point, in one row.
std::vector<std::uint32_t> NumberGreys(const std::vector<float>& values) {
  const auto width = static_cast<std::uint32_t>(values.size());
  auto words =
      WordsOf(DecodeBytes(File({.width = width, .bits = 32, .more = {{SampleFormat, {3}}}}, Floats(values))));
  for (std::uint32_t& word : words) word &= 255;
  return words;
}

TEST(Tiff, Numbers_with_a_point_run_from_zero_to_one) {
  EXPECT_THAT(NumberGreys({0, 0.5F, 1}), ElementsAre(0, 128, 255));
}

TEST(Tiff, Numbers_beyond_one_show_the_whole_of_their_range) {
  EXPECT_THAT(NumberGreys({0, 50, 100}), ElementsAre(0, 128, 255));
  EXPECT_THAT(NumberGreys({-100, 0, 100}), ElementsAre(0, 128, 255));
}

TEST(Tiff, Where_most_numbers_lie_between_zero_and_one_the_others_are_cut_off) {
  EXPECT_THAT(NumberGreys({0.25F, 0.5F, 1, 1e30F, -7}), ElementsAre(64, 128, 255, 255, 0));
  // Zeros fill what is empty: they do not make a picture of large numbers one of small ones.
  EXPECT_THAT(NumberGreys({0, 0, 0, 0, 50, 100}), ElementsAre(0, 0, 0, 0, 128, 255));
}

TEST(Tiff, Numbers_far_from_all_others_do_not_set_the_range) {
  EXPECT_THAT(NumberGreys({10, 20, 30, 40, 50, 60, 1e30F}), ElementsAre(0, 51, 102, 153, 204, 255, 255));
  EXPECT_THAT(NumberGreys({-1e30F, 10, 20, 30, 40, 50, 60}), ElementsAre(0, 0, 51, 102, 153, 204, 255));
  const float none = std::numeric_limits<float>::quiet_NaN(),
              endless = std::numeric_limits<float>::infinity();
  EXPECT_THAT(NumberGreys({10, none, 20, 30, endless, 40, 50}), ElementsAre(0, 0, 64, 128, 255, 191, 255));
}

TEST(Tiff, Numbers_that_are_all_the_same_are_shown) {
  EXPECT_THAT(NumberGreys({7, 7, 7}), ElementsAre(255, 255, 255));
  EXPECT_THAT(NumberGreys({-7, -7, -7}), ElementsAre(0, 0, 0));
}

TEST(Tiff, Transparency_beside_numbers_has_no_say_in_their_range) {
  const Layout layout{
      .width = 2, .bits = 32, .samples = 2, .more = {{SampleFormat, {3, 3}}, {ExtraSamples, {2}}}};
  EXPECT_THAT(WordsOf(DecodeBytes(File(layout, Floats({10, 0.5F, 30, 1})))),
              ElementsAre(0x80000000U, 0xFFFFFFFFU));
}

TEST(Tiff, Without_a_photometric_tag_the_samples_say_what_they_are) {
  EXPECT_THAT(WordsOf(DecodeBytes(File({.width = 2, .photometric = Unsaid}, {0, 200}))),
              ElementsAre(0xFF000000U, 0xFFC8C8C8U));
  EXPECT_THAT(WordsOf(DecodeBytes(File({.width = 8, .bits = 1, .photometric = Unsaid}, {0xAA}))).front(),
              0xFFFFFFFFU);
  EXPECT_THAT(
      WordsOf(DecodeBytes(File({.width = 2, .samples = 3, .photometric = Unsaid}, {1, 2, 3, 4, 5, 6}))),
      ElementsAre(0xFF010203U, 0xFF040506U));
  EXPECT_THAT(WordsOf(DecodeBytes(File({.samples = 4, .photometric = Unsaid}, {10, 20, 30, 128}))),
              ElementsAre(0x800A141EU));
  const Layout mapped{
      .width = 2, .bits = 1, .photometric = Unsaid, .more = {{320, {0xFF00, 0, 0, 0x8000, 0, 0xFFFF}}}};
  EXPECT_THAT(WordsOf(DecodeBytes(File(mapped, {0x40}))), ElementsAre(0xFFFF0000U, 0xFF0080FFU));
  const Layout inks{.samples = 4, .photometric = Unsaid, .more = {{InkSet, {1}}}};
  EXPECT_THAT(WordsOf(DecodeBytes(File(inks, {0, 255, 255, 0}))), ElementsAre(0xFFFF0000U));
}

TEST(Tiff, Chroma_planes_smaller_than_the_picture_may_hold_differences) {
  const Layout layout{.width = 4,
                      .height = 4,
                      .samples = 3,
                      .photometric = LumaAndChroma,
                      .more = {{PlanarConfiguration, {2}}, {Predictor, {2}}, {ChromaSubsampling, {2, 2}}},
                      .compression = 5};
  const std::vector<std::uint8_t> luma = {100, 0, 0, 0, 120, 0, 0, 0, 140, 0, 0, 0, 160, 0, 0, 0};
  const std::vector<std::uint8_t> chroma = {128, 0, 128, 0};
  const Pixels pixels = DecodeBytes(FileOf(layout, {Lzw(luma), Lzw(chroma), Lzw(chroma)}));
  for (int y = 0; y < 4; ++y) {
    const auto grey = static_cast<std::uint32_t>(100 + 20 * y);
    EXPECT_THAT(RowOf(pixels, y), Each(0xFF000000U | grey << 16 | grey << 8 | grey)) << y;
  }
}

TEST(Tiff, A_strip_that_is_damaged_is_shown_as_far_as_it_goes) {
  const Layout layout{.width = 100, .height = 6, .compression = 5};
  auto bad = Lzw(std::vector<std::uint8_t>(300, 9));
  const auto good = Lzw(std::vector<std::uint8_t>(300, 7));
  std::fill(bad.begin() + 170, bad.end(), std::uint8_t{0xFF});  // codes that stand for nothing, from row 1 on
  const Pixels pixels = DecodeBytes(FileOf(layout, {bad, good}, 3));
  EXPECT_THAT(RowOf(pixels, 0), Each(0xFF090909U));
  EXPECT_THAT(RowOf(pixels, 2), Each(blankPixel));
  for (int y = 3; y < 6; ++y) EXPECT_THAT(RowOf(pixels, y), Each(0xFF070707U)) << y;
}

TEST(Tiff, A_profile_is_applied_to_all_sixteen_bits) {
  const auto icc = ColourProfileOf("linear", Lights::Srgb, Curve::Linear);
  Layout layout{.bits = 16, .samples = 3, .photometric = Colour};
  const auto withProfile = [&](const std::vector<std::uint8_t>& pixels) {
    layout.more = {{Profile, {icc.begin(), icc.end()}, TiffTag::Undefined}};
    return WordsOf(DecodeBytes(File(layout, pixels)));
  };
  // A thousandth and two thousandths of the light, which 8 bits do not hold.
  EXPECT_THAT(withProfile({66, 0, 66, 0, 66, 0}), ElementsAre(0xFF030303U));
  EXPECT_THAT(withProfile({131, 0, 131, 0, 131, 0}), ElementsAre(0xFF070707U));
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
