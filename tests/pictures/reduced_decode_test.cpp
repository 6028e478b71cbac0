// Pictures decoded for a smaller size: exactly that size, and the area average of all their pixels.

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>

#include "gallery/encoders/bmp_encoder.h"
#include "gallery/encoders/jpeg_encoder.h"
#include "gallery/encoders/png_encoder.h"
#include "gallery/encoders/tiff_encoder.h"
#include "pictures/picture.h"
#include "pictures/row_target.h"
#include "pictures/scaling.h"
#include "pictures/support/byte_writer.h"
#include "pictures/support/library_writers.h"
#include "pictures/support/patterns.h"
#include "pictures/support/profiles.h"

namespace lumidex {
namespace {

using testing::Each;
using testing::ElementsAre;

constexpr Size wholeSize{61, 47};

// The furthest that any channel is off; a large number when the sizes or formats are not the same.
int FurthestOff(const Pixels& a, const Pixels& b) {
  if (a.GetSize() != b.GetSize() || a.Format() != b.Format()) return 1000;
  int most = 0;
  for (int y = 0; y < a.Height(); ++y)
    for (std::size_t x = 0; x < a.Row(y).size(); ++x)
      for (const int shift : {0, 8, 16, 24})
        most = std::max(most, std::abs(static_cast<int>(a.Row(y)[x] >> shift & 255) -
                                       static_cast<int>(b.Row(y)[x] >> shift & 255)));
  return most;
}

void ExpectAverages(const std::vector<std::uint8_t>& file, const char* what) {
  const auto decoder = OpenBytes(file);
  EXPECT_TRUE(decoder->Facts().reducible) << what;
  const Size full = decoder->Facts().size;
  const Pixels all = decoder->Decode({});
  for (const Size size :
       {Size{full.width - 1, full.height - 1}, Size{full.width / 2 + 3, full.height / 2 + 5}, Size{7, 9},
        Size{1, 1}, Size{full.width, 5}, Size{5, full.height}}) {
    EXPECT_EQ(FurthestOff(decoder->Decode({size}), Scale(all, size)), 0)
        << what << ' ' << size.width << 'x' << size.height;
  }
  // Nothing smaller than all of it covers these.
  EXPECT_EQ(decoder->Decode({{full.width + 1, 1}}).GetSize(), full) << what;
  EXPECT_EQ(decoder->Decode({{5, 6}, Fit::AtLeast}).GetSize(), (Size{10, 12})) << what;
  EXPECT_EQ(decoder->Decode({{full.width / 2 + 1, 5}, Fit::AtLeast}).GetSize(), full) << what;
}

TEST(ReducedDecode, Files_of_rows_are_averaged_as_they_are_read) {
  const Pixels plain = ColourPattern(wholeSize);
  ExpectAverages(EncodePng(plain), "PNG");
  ExpectAverages(EncodePng(ColourPattern(wholeSize, PixelFormat::Argb)), "PNG with alpha");
  ExpectAverages(EncodePng(Stripes(wholeSize, DistinctColours(16))), "PNG with a palette");
  ExpectAverages(EncodeBmp(plain), "BMP");
  ExpectAverages(EncodeBmp(Stripes(wholeSize, DistinctColours(200))), "BMP with a palette");
  ExpectAverages(EncodeTiff(plain), "TIFF");
}

TEST(ReducedDecode, JPEG_is_averaged_from_the_nearest_fast_size) {
  const auto decoder = OpenBytes(EncodeJpeg(ColourPattern({160, 120}), 90));
  const Pixels all = decoder->Decode({}), half = decoder->Decode({{80, 60}});
  ASSERT_EQ(half.GetSize(), (Size{80, 60}));
  EXPECT_EQ(FurthestOff(decoder->Decode({{81, 60}}), Scale(all, {81, 60})), 0);
  EXPECT_EQ(FurthestOff(decoder->Decode({{70, 50}}), Scale(half, {70, 50})), 0);
}

TEST(ReducedDecode, Bitmaps_of_either_order_of_rows_are_the_same) {
  auto file = EncodeBmp(ColourPattern({4, 8}));
  const Pixels upwards = DecodeBytes(file);
  // The height becomes negative and the rows, of twelve bytes, change places.
  const std::size_t pixels = file.size() - std::size_t{8} * 12;
  for (std::size_t i = 0; i < 4; ++i)
    std::swap_ranges(file.begin() + static_cast<std::ptrdiff_t>(pixels + i * 12),
                     file.begin() + static_cast<std::ptrdiff_t>(pixels + (i + 1) * 12),
                     file.begin() + static_cast<std::ptrdiff_t>(pixels + (7 - i) * 12));
  file[22] = 0xF8;
  std::fill_n(file.begin() + 23, 3, std::uint8_t{0xFF});
  const auto downwards = OpenBytes(file);
  ASSERT_EQ(FurthestOff(downwards->Decode({}), upwards), 0);
  EXPECT_EQ(FurthestOff(downwards->Decode({{3, 5}}), Scale(upwards, {3, 5})), 0);
}

TEST(ReducedDecode, Missing_rows_are_blank_in_what_is_averaged) {
  auto file = EncodeBmp(Pixels::Make({3, 4}, PixelFormat::Rgb, 0xFF000000));
  file.resize(file.size() - 2 * 12);  // the upper half
  EXPECT_THAT(WordsOf(OpenBytes(file)->Decode({{1, 2}})), ElementsAre(0xFFFFFFFFU, 0xFF000000U));
  EXPECT_THAT(WordsOf(OpenBytes(file)->Decode({{1, 1}})), ElementsAre(0xFF808080U));
}

TEST(ReducedDecode, A_profile_is_applied_before_averaging) {
  const auto file = WritePng({2, 1}, {0, 0, 0, 128, 128, 128},
                             {.icc = ColourProfileOf("linear", Lights::Srgb, Curve::Linear)});
  EXPECT_THAT(WordsOf(OpenBytes(file)->Decode({{1, 1}})), ElementsAre(0xFF5E5E5EU));  // half of 0xBC
}

TEST(ReducedDecode, Inks_are_averaged_and_then_converted) {
  std::vector<std::uint8_t> samples;
  for (int i = 0; i < 16 * 16; ++i) samples.insert(samples.end(), {255, 255, 255, 255});
  const auto file = WriteJpeg({16, 16}, samples, {.components = 4, .icc = InksProfile()});
  const Pixels all = OpenBytes(file)->Decode({}), small = OpenBytes(file)->Decode({{3, 3}});
  EXPECT_THAT(WordsOf(small), Each(all.Row(0)[0]));
}

TEST(ReducedDecode, Interlaced_PNG_files_are_decoded_whole) {
  const auto decoder = OpenBytes(WritePng({2, 2}, std::vector<std::uint8_t>(12, 9), {.interlaced = true}));
  EXPECT_FALSE(decoder->Facts().reducible);
  EXPECT_EQ(decoder->Decode({{1, 1}}).GetSize(), (Size{2, 2}));
}

TEST(RowTarget, Rows_of_a_band_come_in_any_order) {
  for (const Size wanted : {Size{}, Size{1, 1}}) {
    RowTarget target({1, 3}, PixelFormat::Rgb, {.wanted = wanted, .rowsAtOnce = 2});
    EXPECT_EQ(target.IsReduced(), wanted.width == 1);
    target.Row(1)[0] = 0xFF202020;
    target.Row(0)[0] = 0xFF101010;
    target.Add(2);
    EXPECT_EQ(target.RowsMissing(), 1);
    target.Row()[0] = 0xFF303030;
    target.Add();
    EXPECT_EQ(target.Finish(0).Row(0)[0], wanted.width == 1 ? 0xFF202020U : 0xFF101010U);
  }
}

TEST(RowTarget, Rows_that_never_came_are_blank) {
  RowTarget target({1, 3}, PixelFormat::Rgb, {.order = RowOrder::BottomUp});
  target.Row()[0] = 0xFF000001;
  target.Add();
  target.Row()[0] = 0xFF000002;  // begun and never added
  EXPECT_THAT(WordsOf(target.Finish(0xFFFFFFFF)), ElementsAre(0xFFFFFFFFU, 0xFFFFFFFFU, 0xFF000001U));
}

}  // namespace
}  // namespace lumidex
