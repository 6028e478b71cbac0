#include "pictures/bmp_writer.h"

#include <gmock/gmock.h>

#include "base/run_time_error.h"
#include "number_raised.h"
#include "pictures/picture.h"
#include "pictures/picture_data.h"
#include "pictures/support/collecting_sink.h"

namespace lumidex {
namespace {

std::vector<std::uint8_t> BmpFile(const Pixels& pixels) {
  CollectingSink sink;
  WriteBmp(pixels, sink);
  return sink.bytes;
}

Picture Reopened(const std::vector<std::uint8_t>& file) {
  return Picture::Open(PictureData(std::make_shared<MemorySource>(file), ".bmp"));
}

void ExpectSame(const Pixels& read, const Pixels& written) {
  ASSERT_EQ(read.GetSize(), written.GetSize());
  for (int y = 0; y < written.Height(); ++y) {
    EXPECT_THAT(read.Row(y), testing::ElementsAreArray(written.Row(y))) << "row " << y;
  }
}

TEST(BmpWriter, Opaque_pixels_are_written_with_24_bits_and_read_back) {
  Pixels pixels = Pixels::Make({3, 2}, PixelFormat::Rgb, 0xFF102030);
  pixels.Row(0)[2] = 0xFFFF0000;
  pixels.Row(1)[0] = 0xFF0000FF;
  const auto file = BmpFile(pixels);
  // Headers, then two rows of three pixels, each padded to twelve bytes.
  EXPECT_EQ(file.size(), 14U + 40 + 2 * 12);
  const Picture picture = Reopened(file);
  EXPECT_EQ(picture.BitsPerPixel(), 24);
  ExpectSame(picture.FullPixels(), pixels);
}

TEST(BmpWriter, Rows_of_every_length_keep_their_last_pixels) {
  for (int width = 1; width <= 21; ++width) {
    Pixels pixels = Pixels::Make({width, 3}, PixelFormat::Rgb, 0);
    std::uint32_t next = 0x123456;
    for (int y = 0; y < 3; ++y) {
      for (auto& word : pixels.Row(y)) word = 0xFF000000U | (next = next * 77 & 0xFFFFFF);
    }
    ExpectSame(Reopened(BmpFile(pixels)).FullPixels(), pixels);
  }
}

TEST(BmpWriter, More_rows_than_are_handed_on_at_once_stay_in_order) {
  Pixels pixels = Pixels::Make({1000, 300}, PixelFormat::Rgb, 0);
  for (int y = 0; y < 300; ++y) {
    std::ranges::fill(pixels.Row(y), 0xFF000000U | static_cast<std::uint32_t>(y) * 0x301);
  }
  ExpectSame(Reopened(BmpFile(pixels)).FullPixels(), pixels);
}

TEST(BmpWriter, Transparency_is_kept_with_32_bits) {
  Pixels pixels = Pixels::Make({3, 2}, PixelFormat::Argb, 0x80102030);
  pixels.Row(0)[1] = 0xFFFF0000;
  pixels.Row(1)[2] = 0x00000000;
  const auto file = BmpFile(pixels);
  EXPECT_EQ(file.size(), 14U + 108 + 2 * 12);
  const Picture picture = Reopened(file);
  EXPECT_EQ(picture.BitsPerPixel(), 32);
  EXPECT_EQ(picture.FullPixels().Format(), PixelFormat::Argb);
  ExpectSame(picture.FullPixels(), pixels);
}

TEST(BmpWriter, Premultiplied_pixels_are_blended_over_white) {
  const Pixels pixels = Pixels::Make({1, 1}, PixelFormat::ArgbPremultiplied, 0x80400000);
  EXPECT_EQ(Reopened(BmpFile(pixels)).FullPixels().Row(0)[0], 0xFFBF7F7FU);
}

TEST(BmpWriter, No_pixels_are_no_picture) {
  EXPECT_EQ(NumberRaisedBy([] { BmpFile({}); }), 481);
}

}  // namespace
}  // namespace lumidex
