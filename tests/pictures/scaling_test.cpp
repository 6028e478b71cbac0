#include "pictures/scaling.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>

#include "number_raised.h"
#include "pictures/reduced_picture.h"
#include "pictures/row_reducer.h"
#include "pictures/support/byte_writer.h"
#include "pictures/support/thin_lines.h"

namespace lumidex {
namespace {

using testing::Each;
using testing::ElementsAre;

Pixels Row(const std::vector<std::uint32_t>& words, PixelFormat format = PixelFormat::Rgb) {
  Pixels pixels = Pixels::Make({static_cast<int>(words.size()), 1}, format, 0);
  std::ranges::copy(words, pixels.Row(0).begin());
  return pixels;
}

Pixels Noise(Size size) {
  Pixels pixels = Pixels::Make(size, PixelFormat::Rgb, 0);
  std::uint32_t state = 3;
  for (int y = 0; y < size.height; ++y) {
    for (auto& word : pixels.Row(y)) word = 0xFF000000U | (state = state * 1664525 + 1013904223) >> 8;
  }
  return pixels;
}

// How much of source pixel `from` goes into destination pixel `into`, as the header says it.
double Share(int from, int into, int fromLength, int intoLength) {
  const double ratio = static_cast<double>(fromLength) / intoLength;
  if (ratio > 1) {
    const double covered = std::min((into + 1) * ratio, from + 1.0) - std::max(into * ratio, from * 1.0);
    return std::max(0.0, covered) / ratio;
  }
  const double centre = std::clamp((into + 0.5) * ratio - 0.5, 0.0, fromLength - 1.0);
  return std::max(0.0, 1 - std::abs(centre - from));
}

// Calls visit(from, share) for all that go into destination pixel `into`.
template <class Visit>
void ForShares(int into, int fromLength, int intoLength, Visit visit) {
  const double ratio = static_cast<double>(fromLength) / intoLength;
  const int first = std::max(0, static_cast<int>(into * ratio) - 1);
  const int end = std::min(fromLength, static_cast<int>((into + 1) * ratio) + 2);
  for (int from = first; from < end; ++from) visit(from, Share(from, into, fromLength, intoLength));
}

double Exact(const Pixels& pixels, Size size, int x, int y, int shift) {
  double sum = 0;
  ForShares(y, pixels.Height(), size.height, [&](int row, double rowShare) {
    ForShares(x, pixels.Width(), size.width, [&](int column, double share) {
      sum += rowShare * share * (pixels.Row(row)[static_cast<std::size_t>(column)] >> shift & 255);
    });
  });
  return sum;
}

TEST(Scaling, A_smaller_pixel_is_the_mean_of_what_it_covers) {
  EXPECT_THAT(WordsOf(Scale(Row({0xFF000000, 0xFF204060, 0xFF808080, 0xFF80A0C0}), {2, 1})),
              ElementsAre(0xFF102030U, 0xFF8090A0U));
  // Two thirds of the first pixel and a third of the middle one, and the other way round.
  EXPECT_THAT(WordsOf(Scale(Row({0xFF000000, 0xFF0000FF, 0xFF000000}), {2, 1})),
              ElementsAre(0xFF000055U, 0xFF000055U));
}

TEST(Scaling, A_larger_picture_runs_evenly_between_the_middles_of_the_pixels) {
  EXPECT_THAT(WordsOf(Scale(Row({0xFF000000, 0xFF000080}), {4, 1})),
              ElementsAre(0xFF000000U, 0xFF000020U, 0xFF000060U, 0xFF000080U));
}

TEST(Scaling, Every_pixel_is_as_exact_as_a_byte_can_be) {
  const Pixels noise = Noise({37, 23});
  for (const Size size : {Size{9, 5}, {37, 7}, {5, 23}, {1, 1}, {36, 22}, {80, 50}, {80, 6}, {6, 50}}) {
    const Pixels scaled = Scale(noise, size);
    ASSERT_EQ(scaled.GetSize(), size);
    for (int y = 0; y < size.height; ++y) {
      for (int x = 0; x < size.width; ++x) {
        const std::uint32_t word = scaled.Row(y)[static_cast<std::size_t>(x)];
        EXPECT_EQ(word >> 24, 255U);
        for (const int shift : {0, 8, 16})
          EXPECT_NEAR(word >> shift & 255, Exact(noise, size, x, y, shift), 0.51) << size.width << ' ' << x;
      }
    }
  }
}

TEST(Scaling, Every_pixel_is_as_exact_at_large_and_odd_ratios) {
  for (const Size from : {Size{3, 2600}, {2600, 3}, {700, 1030}}) {
    const Pixels noise = Noise(from);
    for (const Size size : {Size{1, 1}, {2, 3}, {3, 2}, {1, 10}, {2, 1029}, {699, 1}}) {
      if (size.width > from.width || size.height > from.height) continue;
      const Pixels scaled = Scale(noise, size);
      for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; x += 13)
          for (const int shift : {0, 8, 16})
            ASSERT_NEAR(scaled.Row(y)[static_cast<std::size_t>(x)] >> shift & 255,
                        Exact(noise, size, x, y, shift), 0.52)
                << from.width << ' ' << size.width << ' ' << x << ' ' << y;
    }
  }
}

// The area average reckoned apart is the referee. A good reducer of windowed sines or cubics is at 31 dB
// here.
TEST(Scaling, Thin_lines_keep_their_grey_at_every_reduction) {
  const Pixels lines = ThinLines({120, 90});
  for (int percent = 15; percent < 100; percent += 7) {
    const Size size{120 * percent / 100, 90 * percent / 100};
    const Pixels scaled = Scale(lines, size);
    double squares = 0;
    for (int y = 0; y < size.height; ++y) {
      for (int x = 0; x < size.width; ++x) {
        const double off = (scaled.Row(y)[static_cast<std::size_t>(x)] & 255) - Exact(lines, size, x, y, 0);
        squares += off * off;
      }
    }
    const double decibels = 10 * std::log10(255.0 * 255.0 * size.width * size.height / squares);
    EXPECT_GT(decibels, 55) << percent;
  }
}

TEST(Scaling, A_single_colour_stays_whatever_the_ratio) {
  const Pixels plain = Pixels::Make({997, 3}, PixelFormat::Rgb, 0xFF0180FE);
  for (const Size size : {Size{80, 1}, {1, 1}, {996, 2}, {1300, 40}}) {
    EXPECT_THAT(WordsOf(Scale(plain, size)), Each(0xFF0180FEU)) << size.width;
  }
}

TEST(Scaling, Transparent_pixels_lend_no_colour) {
  EXPECT_THAT(WordsOf(Scale(Row({0xFF00FF00, 0x00FF0000}, PixelFormat::Argb), {1, 1})),
              ElementsAre(0x8000FF00U));
  EXPECT_THAT(WordsOf(Scale(Row({0x00FFFFFF, 0x00FFFFFF}, PixelFormat::Argb), {1, 1})), ElementsAre(0U));
  // Premultiplied ones have done so already.
  EXPECT_THAT(WordsOf(Scale(Row({0xFF00FF00, 0x00000000}, PixelFormat::ArgbPremultiplied), {1, 1})),
              ElementsAre(0x80008000U));
}

TEST(Scaling, The_same_size_is_the_same_pixels_and_none_is_refused) {
  const Pixels noise = Noise({4, 4});
  EXPECT_EQ(Scale(noise, {4, 4}).Data(), noise.Data());
  EXPECT_EQ(NumberRaisedBy([&] { Scale(noise, {0, 4}); }), 481);
}

TEST(RowReducer, Rows_from_the_bottom_give_the_mirrored_picture) {
  const Pixels noise = Noise({41, 29});
  Pixels down = Pixels::Make({9, 7}, PixelFormat::Rgb, 0), up = Pixels::Make({9, 7}, PixelFormat::Rgb, 0);
  RowReducer downwards(noise.GetSize(), down), upwards(noise.GetSize(), up, true);
  for (int y = 0; y < noise.Height(); ++y) {
    downwards.Add(noise.Row(y));
    upwards.Add(noise.Row(y));
  }
  EXPECT_EQ(WordsOf(down), WordsOf(Scale(noise, {9, 7})));
  for (int y = 0; y < 7; ++y) EXPECT_EQ(RowOf(up, y), RowOf(down, 6 - y)) << y;
}

TEST(RowReducer, Parts_of_the_picture_made_apart_are_those_of_the_whole) {
  for (const Size from : {Size{5, 7}, {5, 100}, {5, 1000}, {5, 12}}) {
    const Pixels noise = Noise(from);
    for (const int height : {1, 3, 6, 7}) {
      const Size size{4, height};
      Pixels whole = Pixels::Make(size, PixelFormat::Rgb, 0), parts = Copy(whole);
      RowReducer reducer(from, whole);
      for (int y = 0; y < from.height; ++y) reducer.Add(noise.Row(y));
      for (int row = height - 1; row >= 0; --row) {
        RowReducer part(from, parts, false, row);
        for (auto y = static_cast<int>(part.RowsBefore(row)); part.Done() == row; ++y) part.Add(noise.Row(y));
      }
      EXPECT_EQ(WordsOf(parts), WordsOf(whole)) << from.height << " to " << height;
    }
  }
}

// Large enough to be worth more than one processor.
TEST(Scaling, A_large_picture_is_as_exact) {
  const Pixels noise = Noise({1500, 1001});
  const Size size{3, 700};
  const Pixels scaled = Scale(noise, size);
  for (int y = 0; y < size.height; ++y)
    ASSERT_NEAR(scaled.Row(y)[1] & 255, Exact(noise, size, 1, y, 0), 0.52) << y;
}

TEST(RowReducer, Rows_with_and_without_transparency_join) {
  // A clear, a half clear and two opaque rows.
  Pixels into = Pixels::Make({1, 1}, PixelFormat::Argb, 0);
  RowReducer reducer({1, 4}, into);
  for (const std::uint32_t word : {0x00FF00FFU, 0x800000FFU, 0xFF0000FFU, 0xFF00FF00U})
    reducer.Add(std::vector<std::uint32_t>{word});
  // Alpha (0 + 128 + 255 + 255) / 4; blue weighs 128 + 255, green 255 of 638.
  EXPECT_THAT(WordsOf(into), ElementsAre(0xA0006699U));
}

TEST(ReducedSize, The_longer_side_becomes_the_square_and_the_other_follows_rounded) {
  EXPECT_EQ(ReducedSize({200, 100}, 50), (Size{50, 25}));
  EXPECT_EQ(ReducedSize({100, 33}, 80), (Size{80, 26}));
  EXPECT_EQ(ReducedSize({33, 101}, 80), (Size{26, 80}));
  EXPECT_EQ(ReducedSize({32767, 1}, 80), (Size{80, 1}));
  EXPECT_EQ(ReducedSize({80, 80}, 80), (Size{80, 80}));
  EXPECT_EQ(ReducedSize({79, 3}, 80), (Size{79, 3}));
}

TEST(ReducedPicture, A_raised_edge_is_light_above_and_left_and_dark_below_and_right) {
  const Picture grey = Picture::FromPixels(Pixels::Make({60, 60}, PixelFormat::Rgb, 0xFF808080), 24);
  for (const int square : {30, 60}) {
    const Pixels raised = ReducedPicture(grey, square, ReducedStyle::Raised).FullPixels();
    const std::size_t last = static_cast<std::size_t>(square) - 1;
    const int middle = square / 2;
    EXPECT_EQ(raised.Row(0)[5], 0xFFBFBFBFU);
    EXPECT_EQ(raised.Row(middle)[0], 0xFFBFBFBFU);
    EXPECT_EQ(raised.Row(square - 1)[5], 0xFF545454U);
    EXPECT_EQ(raised.Row(middle)[last], 0xFF545454U);
    EXPECT_THAT(raised.Row(middle).subspan(1, last - 1), Each(0xFF808080U));
  }
  EXPECT_EQ(grey.FullPixels().Row(0)[0], 0xFF808080U);  // the picture itself has none
}

TEST(ReducedPicture, An_edge_is_seen_on_a_transparent_picture_too) {
  const Picture clear = Picture::FromPixels(Pixels::Make({40, 40}, PixelFormat::Argb, 0), 32);
  const Pixels raised = ReducedPicture(clear, 20, ReducedStyle::Raised).FullPixels();
  EXPECT_EQ(raised.Format(), PixelFormat::Argb);
  EXPECT_EQ(raised.Row(0)[10], 0xFF7F7F7FU);
  EXPECT_EQ(raised.Row(10)[10], 0U);
}

}  // namespace
}  // namespace lumidex
