// What the program saves, read by another reader than its own: that of the toolkit.

#include <QBuffer>
#include <QImageReader>
#include <cmath>

#include "controls/gvbox.h"
#include "controls/gvbox_world.h"
#include "gallery/encoders/byte_writer.h"
#include "gallery/encoders/jpeg_encoder.h"
#include "pictures/bmp_writer.h"

namespace lumidex {
namespace {

Pixels Slopes(Size size) {
  Pixels pixels = Pixels::Make(size, PixelFormat::Rgb, 0);
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      pixels.Row(y)[static_cast<std::size_t>(x)] =
          0xFF000000U | static_cast<std::uint32_t>(x * 255 / size.width) << 16 |
          static_cast<std::uint32_t>(y * 255 / size.height) << 8 | 0x40U;
    }
  }
  return pixels;
}

class SavedFiles : public GvboxTest {
 protected:
  struct Answer {
    QImage image;
    QImageIOHandler::Transformations transformation;
  };
  Answer ReadByToolkit(const std::string& file, const char* format) {
    const std::string text = platform.files.ReadAll(file);
    QByteArray bytes(text.data(), static_cast<qsizetype>(text.size()));
    QBuffer buffer(&bytes);
    QImageReader toolkit(&buffer, format);
    toolkit.setAutoTransform(false);
    QImage image = toolkit.read().convertToFormat(QImage::Format_RGB32);
    EXPECT_FALSE(image.isNull()) << toolkit.errorString().toStdString();
    return {std::move(image), toolkit.transformation()};
  }
  // The largest difference of a channel between what was read and the working image.
  int Difference(const QImage& image) {
    const Pixels pixels = box.Picture().FullPixels();
    EXPECT_EQ(image.size(), QSize(pixels.Width(), pixels.Height()));
    if (image.size() != QSize(pixels.Width(), pixels.Height())) return 255;
    int most = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        const QRgb read = image.pixel(x, y), held = pixels.Row(y)[static_cast<std::size_t>(x)];
        most = std::max({most, std::abs(qRed(read) - qRed(held)), std::abs(qGreen(read) - qGreen(held)),
                         std::abs(qBlue(read) - qBlue(held))});
      }
    }
    return most;
  }
  void Open(const std::vector<std::uint8_t>& bytes, const std::string& file) {
    platform.files.AddFile(file, AsText(bytes));
    box.SetFileName(file);
  }
};

TEST_F(SavedFiles, A_jpeg_file_of_the_turned_and_mirrored_picture_reads_as_it_was_seen) {
  for (const Size size : {Size{61, 37}, Size{64, 48}, Size{7, 90}}) {
    Open(EncodeBmp(Slopes(size)), "/slopes.bmp");
    box.JPGQuality = "95";
    box.Rotate(1);
    FlipAcross();
    Saved();
    const Answer saved = ReadByToolkit("/out.jpg", "jpeg");
    EXPECT_EQ(saved.transformation, QImageIOHandler::TransformationNone);
    EXPECT_LE(Difference(saved.image), 24) << size.width;
  }
}

TEST_F(SavedFiles, A_jpeg_file_that_lay_on_its_side_stands_upright_without_a_mark_for_it) {
  const auto jpeg = EncodeJpeg(Slopes({64, 32}), 95);
  constexpr std::uint8_t onItsSide = 6;
  ByteWriter exif;
  exif.Append(std::string_view("Exif\0\0II", 8)).U16Le(42).U32Le(8);
  exif.U16Le(1).U16Le(0x0112).U16Le(3).U32Le(1).U32Le(onItsSide).U32Le(0);
  ByteWriter file;
  file.Append(std::span(jpeg).first(2));
  file.Add({0xFF, 0xE1}).U16Be(static_cast<std::uint32_t>(exif.Size() + 2)).Append(exif.Bytes());
  file.Append(std::span(jpeg).subspan(2));
  Open(file.Take(), "/side.jpg");
  ASSERT_EQ(ReadByToolkit("/side.jpg", "jpeg").transformation, QImageIOHandler::TransformationRotate90);
  Saved();
  const Answer saved = ReadByToolkit("/out.jpg", "jpeg");
  EXPECT_EQ(saved.transformation, QImageIOHandler::TransformationNone);
  EXPECT_EQ(saved.image.size(), QSize(32, 64));
  EXPECT_LE(Difference(saved.image), 24);
}

TEST_F(SavedFiles, A_bitmap_file_reads_pixel_by_pixel_as_it_was_seen) {
  for (const Size size : {Size{1, 1}, Size{2, 3}, Size{61, 37}}) {
    Open(EncodeBmp(Slopes(size)), "/slopes.bmp");
    box.Rotate(0);
    FlipDown();
    box.Contrast(20);
    const Pixels pixels = box.Picture().FullPixels();
    platform.files.Write("/out.bmp", [&](ByteSink& sink) { WriteBmp(pixels, sink); });
    EXPECT_EQ(Difference(ReadByToolkit("/out.bmp", "bmp").image), 0) << size.width;
  }
}

}  // namespace
}  // namespace lumidex
