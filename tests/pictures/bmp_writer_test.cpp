#include "pictures/bmp_writer.h"

#include <gmock/gmock.h>

#include "pictures/picture.h"

namespace lumidex {
namespace {

Picture Reopened(const std::string& file) {
  const auto source = std::make_shared<MemorySource>(std::vector<std::uint8_t>(file.begin(), file.end()));
  return Picture::Open(PictureData(source, ".bmp"));
}

TEST(BmpWriter, The_program_reads_the_pixels_back) {
  Pixels pixels = Pixels::Make({3, 2}, PixelFormat::Rgb, 0xFF102030);
  pixels.Row(0)[2] = 0xFFFF0000;
  pixels.Row(1)[0] = 0xFF0000FF;
  const std::string file = BmpFile(pixels);
  // Headers, then two rows of three pixels, each padded to twelve bytes.
  EXPECT_EQ(file.size(), 14U + 40 + 2 * 12);
  const Picture picture = Reopened(file);
  EXPECT_EQ(picture.GetSize(), (Size{3, 2}));
  EXPECT_EQ(picture.BitsPerPixel(), 24);
  const Pixels read = picture.FullPixels();
  for (int y = 0; y < 2; ++y) {
    for (int x = 0; x < 3; ++x) EXPECT_EQ(read.Row(y)[x], pixels.Row(y)[x]) << x << ", " << y;
  }
}

TEST(BmpWriter, Transparent_pixels_become_white) {
  const Pixels pixels = Pixels::Make({1, 1}, PixelFormat::Argb, 0x00000000);
  EXPECT_EQ(Reopened(BmpFile(pixels)).FullPixels().Row(0)[0], 0xFFFFFFFFU);
}

}  // namespace
}  // namespace lumidex
