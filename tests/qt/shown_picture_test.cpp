// What stands on the screen of a picture, pixel by pixel.

#include "platform/qt/mirrors/shown_picture.h"
#include "pictures/pixels.h"

#include <cmath>

#include "gallery/encoders/bmp_encoder.h"
#include "qt/qt_world.h"

namespace lumidex {
namespace {

// Strokes one and two pixels wide, close together as in small text.
Pixels Strokes(Size size) {
  Pixels pixels = Pixels::Make(size, PixelFormat::Rgb, 0xFFFFFFFF);
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      const bool isDark =
          y % 11 < 7 && ((x + y / 11 * 3) % 7 == 1 || (x * 3 + y) % 13 < 2 || (y % 11 == 3 && x % 5 < 3));
      if (isDark) pixels.Row(y)[static_cast<std::size_t>(x)] = 0xFF000000;
    }
  }
  return pixels;
}

struct ShownPictureTest : testing::Test {
  QtWorld world;
  ShownPicture shown{world.platform, [] {}};

  QImage Painted(const Picture& picture, QSize size) {
    shown.Want(picture, size, DecodingPriority::Screen);
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    shown.Paint(painter, image.rect());
    return image;
  }
};

// The area average, reckoned pixel by pixel.
double Average(const Pixels& pixels, QSize size, int x, int y) {
  const double across = double(pixels.Width()) / size.width(), down = double(pixels.Height()) / size.height();
  double sum = 0;
  for (int row = static_cast<int>(y * down); row < std::min<double>(pixels.Height(), (y + 1) * down); ++row) {
    const double height = std::min(row + 1.0, (y + 1) * down) - std::max<double>(row, y * down);
    for (int column = static_cast<int>(x * across);
         column < std::min<double>(pixels.Width(), (x + 1) * across); ++column) {
      const double width = std::min(column + 1.0, (x + 1) * across) - std::max<double>(column, x * across);
      sum += width * height * (pixels.Row(row)[static_cast<std::size_t>(column)] & 255);
    }
  }
  return sum / (across * down);
}

TEST_F(ShownPictureTest, At_every_reduction_it_is_the_average_of_what_each_pixel_covers) {
  const Pixels strokes = Strokes({400, 300});
  const auto file = EncodeBmp(strokes);
  world.headless.files.AddFile("/text.bmp", {file.begin(), file.end()});
  const Picture picture = OpenPicture(world.headless.files, "/text.bmp");
  for (int percent = 20; percent < 100; percent += 4) {
    const QSize size(4 * percent, 3 * percent);
    const QImage image = Painted(picture, size);
    double squares = 0;
    for (int y = 0; y < size.height(); ++y) {
      for (int x = 0; x < size.width(); ++x) {
        const double off = qRed(image.pixel(x, y)) - Average(strokes, size, x, y);
        squares += off * off;
      }
    }
    // A good reducer of windowed sines or cubics is at 31 dB here at 52 percent.
    EXPECT_GT(10 * std::log10(255.0 * 255.0 * size.width() * size.height() / squares), 50) << percent;
  }
}

TEST_F(ShownPictureTest, In_its_own_size_every_pixel_is_its_own) {
  const Pixels strokes = Strokes({70, 50});
  const QImage image = Painted(Picture::FromPixels(strokes, 24), {70, 50});
  for (int y = 0; y < 50; ++y) {
    for (int x = 0; x < 70; ++x) ASSERT_EQ(image.pixel(x, y), strokes.Row(y)[static_cast<std::size_t>(x)]);
  }
}

TEST_F(ShownPictureTest, Enlarged_by_a_whole_number_its_pixels_stay_hard) {
  const Pixels strokes = Strokes({70, 50});
  for (const int factor : {2, 3, 5}) {
    const QImage image = Painted(Picture::FromPixels(strokes, 24), {70 * factor, 50 * factor});
    for (int y = 0; y < 50 * factor; ++y) {
      for (int x = 0; x < 70 * factor; ++x)
        ASSERT_EQ(image.pixel(x, y), strokes.Row(y / factor)[static_cast<std::size_t>(x / factor)]) << factor;
    }
  }
}

TEST_F(ShownPictureTest, Enlarged_by_a_broken_number_it_is_smooth) {
  Pixels edge = Pixels::Make({20, 20}, PixelFormat::Rgb, 0xFFFFFFFF);
  for (int y = 0; y < 20; ++y) std::ranges::fill(edge.Row(y).first(10), 0xFF000000);
  const QImage image = Painted(Picture::FromPixels(edge, 24), {30, 30});
  bool hasGrey = false;
  for (int x = 0; x < 30; ++x) {
    const int level = qRed(image.pixel(x, 15));
    hasGrey = hasGrey || (level > 20 && level < 235);
  }
  EXPECT_TRUE(hasGrey);
}

TEST_F(ShownPictureTest, Transparent_places_show_the_ground) {
  const QImage image = Painted(Picture::FromPixels(Pixels::Make({4, 4}, PixelFormat::Argb, 0), 32), {4, 4});
  EXPECT_EQ(image.pixel(2, 2), 0xFFFFFFFFU);
}

}  // namespace
}  // namespace lumidex
