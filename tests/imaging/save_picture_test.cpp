#include "imaging/save_picture.h"
#include "pictures/pixels.h"
#include "support/test_program.h"

#include "number_raised.h"
#include "ports/open_picture.h"

namespace lumidex {
namespace {

class SavingPictures : public TestProgram {
 protected:
  static Picture Filled(PixelFormat format, std::uint32_t word) {
    return Picture::FromPixels(Pixels::Make({30, 20}, format, word), 24);
  }
  Picture Reopened(const std::string& path) { return OpenPicture(platform.files, path); }

  Picture opaque = Filled(PixelFormat::Rgb, 0xFF123456);
};

TEST_F(SavingPictures, An_opaque_picture_becomes_a_bitmap_of_24_bits_whatever_the_name_says) {
  SavePicture(app, opaque, "C:\\out.jpg");
  const Picture saved = Reopened("C:\\out.jpg");
  EXPECT_EQ(saved.Format(), "BMP");
  EXPECT_EQ(saved.BitsPerPixel(), 24);
  EXPECT_EQ(saved.GetSize(), (Size{30, 20}));
  EXPECT_EQ(saved.FullPixels().Row(19)[29], 0xFF123456U);
}

TEST_F(SavingPictures, A_transparent_picture_becomes_a_bitmap_of_32_bits) {
  SavePicture(app, Filled(PixelFormat::Argb, 0x80123456), "C:\\out.bmp");
  const Picture saved = Reopened("C:\\out.bmp");
  EXPECT_EQ(saved.BitsPerPixel(), 32);
  EXPECT_EQ(saved.FullPixels().Row(5)[5], 0x80123456U);
}

TEST_F(SavingPictures, The_empty_picture_is_refused) {
  EXPECT_EQ(NumberRaisedBy([&] { SavePicture(app, {}, "C:\\out.bmp"); }), 380);
  EXPECT_FALSE(platform.files.Look("C:\\out.bmp"));
}

TEST_F(SavingPictures, Errors_of_the_disk_come_out_and_the_old_file_stays) {
  platform.files.AddFile("C:\\keep.bmp", "old");
  platform.files.AddDirectory("C:\\ro");
  platform.files.SetReadOnly("C:\\ro", true);
  EXPECT_EQ(NumberRaisedBy([&] { SavePicture(app, opaque, "C:\\ro\\out.bmp"); }), 75);
  EXPECT_EQ(NumberRaisedBy([&] { SavePicture(app, opaque, "C:\\none\\out.bmp"); }), 76);
  platform.files.SetReadOnly("C:\\keep.bmp", true);
  EXPECT_EQ(NumberRaisedBy([&] { SavePicture(app, opaque, "C:\\keep.bmp"); }), 70);
  platform.files.SetReadOnly("C:\\keep.bmp", false);
  platform.files.SetFreeBytes(1000);
  EXPECT_EQ(NumberRaisedBy([&] { SavePicture(app, opaque, "C:\\keep.bmp"); }), 61);
  EXPECT_EQ(platform.files.ReadAll("C:\\keep.bmp"), "old");
}

}  // namespace
}  // namespace lumidex
