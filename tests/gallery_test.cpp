#include "gallery/gallery.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <set>

#include "pictures/picture.h"
#include "pictures/picture_data.h"
#include "pictures/pixels.h"

namespace lumidex {
namespace {

std::vector<std::uint8_t> ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

Picture OpenGalleryPicture(const std::string& name) {
  const std::string path = "gallery/" + name;
  const std::size_t point = name.rfind('.');
  PictureData data(std::make_shared<MemorySource>(ReadFile(path)), name.substr(point));
  data.paletteFile = ReadFile(path.substr(0, path.rfind('.')) + ".pal");
  return Picture::Open(data);
}

// From 0 to 255, over white.
double Luma(std::uint32_t word, PixelFormat format) {
  const double alpha = format == PixelFormat::Rgb ? 1 : (word >> 24) / 255.0;
  return (0.299 * (word >> 16 & 255) + 0.587 * (word >> 8 & 255) + 0.114 * (word & 255)) * alpha +
         255 * (1 - alpha);
}

// The mean luma of a cell of `pixels`, in a grid of 16 by 12 cells.
double CellLuma(const Pixels& pixels, int column, int row) {
  const int left = pixels.Width() * column / 16, right = pixels.Width() * (column + 1) / 16;
  const int top = pixels.Height() * row / 12, bottom = pixels.Height() * (row + 1) / 12;
  double sum = 0;
  for (int y = top; y < bottom; ++y)
    for (int x = left; x < right; ++x)
      sum += Luma(pixels.Row(y)[static_cast<std::size_t>(x)], pixels.Format());
  return sum / ((bottom - top) * (right - left));
}

// Between the darkest and the lightest pixel.
double Contrast(const Pixels& pixels) {
  double darkest = 255, lightest = 0;
  for (int y = 0; y < pixels.Height(); ++y)
    for (const std::uint32_t word : pixels.Row(y)) {
      darkest = std::min(darkest, Luma(word, pixels.Format()));
      lightest = std::max(lightest, Luma(word, pixels.Format()));
    }
  return lightest - darkest;
}

class Gallery : public testing::TestWithParam<GalleryPicture> {};

TEST_P(Gallery, Opens_in_its_size_and_shows_its_scene) {
  const Picture picture = OpenGalleryPicture(GetParam().file);
  ASSERT_EQ(picture.GetSize(), GetParam().size);
  const Pixels shown = picture.FullPixels(), scene = DrawScene(GetParam());
  ASSERT_EQ(shown.GetSize(), scene.GetSize());
  EXPECT_GT(Contrast(shown), 100) << "blank";
  double difference = 0;
  for (int row = 0; row < 12; ++row)
    for (int column = 0; column < 16; ++column)
      difference += std::abs(CellLuma(shown, column, row) - CellLuma(scene, column, row)) / (12 * 16);
  EXPECT_LT(difference, 4) << "not the scene it was drawn from";
}

TEST(GalleryPictures, Hold_every_type) {
  const std::set<std::string> types{".art", ".bmp", ".cur", ".cut", ".dib", ".emf", ".gem", ".gif",
                                    ".hrz", ".ico", ".iff", ".img", ".jpg", ".lbm", ".mac", ".msp",
                                    ".pbm", ".pcx", ".pgm", ".pic", ".png", ".pnm", ".ppm", ".ras",
                                    ".rle", ".tga", ".tif", ".wmf", ".wpg"};
  std::set<std::string> held;
  for (const GalleryPicture& picture : GalleryPictures())
    held.insert(picture.file.substr(picture.file.rfind('.')));
  EXPECT_EQ(held, types);
}

std::string Name(const testing::TestParamInfo<GalleryPicture>& info) {
  std::string name = info.param.file;
  name[name.rfind('.')] = '_';
  return name;
}

INSTANTIATE_TEST_SUITE_P(EveryPicture, Gallery, testing::ValuesIn(GalleryPictures()), Name);

}  // namespace

void PrintTo(const GalleryPicture& picture, std::ostream* out) {
  *out << picture.file;
}

}  // namespace lumidex
