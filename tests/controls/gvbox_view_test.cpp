// What is seen of the image: thumbnails, the part in the view, the colour under the mouse.

#include "controls/gvbox_world.h"
#include "pictures/pixels.h"

namespace lumidex {
namespace {

using testing::ElementsAre;

TEST_F(GvboxTest, An_empty_control_gives_no_thumbnail) {
  box.ThumbnailSize = 80;
  EXPECT_TRUE(box.Picture().IsEmpty());
}

TEST_F(GvboxTest, Another_picture_is_seen_from_its_top_left) {
  box.SetPicture(Picture::FromPixels(Pixels::Make({100, 60}, PixelFormat::Rgb, 0), 24));
  box.SetScrollX(30);
  box.SetScrollY(20);
  EXPECT_EQ(box.ScrollX(), 30);
  box.SetPicture(Picture::FromPixels(Pixels::Make({100, 60}, PixelFormat::Rgb, 0), 24));
  EXPECT_EQ(box.ScrollX(), 0);
  EXPECT_EQ(box.ScrollY(), 0);
}

TEST_F(GvboxTest, A_thumbnail_fits_the_square_and_leaves_the_image_alone) {
  platform.files.AddFile("/wide.bmp", AsText(EncodeBmp(Marks({200, 100}))));
  box.SetFileName("/wide.bmp");
  box.ThumbnailSize = 50;
  EXPECT_EQ(box.Picture().GetSize(), (Size{50, 25}));
  EXPECT_EQ(box.PictureWidth(), 200);
  box.Rotate(1);
  EXPECT_EQ(box.Picture().GetSize(), (Size{25, 50}));
  box.ThumbnailSize = 0;
  EXPECT_EQ(box.Picture().GetSize(), (Size{100, 200}));
  EXPECT_EQ(NumberRaisedBy([&] { box.ThumbnailSize = -1; }), 380);
}

TEST_F(GvboxTest, Filters_and_painting_work_on_the_whole_image_while_thumbnails_are_read) {
  platform.files.AddFile("/wide.bmp", AsText(EncodeBmp(Marks({20, 10}))));
  box.SetFileName("/wide.bmp");
  box.Appearance = 0;
  box.ThumbnailSize = 2;
  box.Brightness(100);
  EXPECT_EQ(box.Picture().GetSize(), (Size{2, 1}));
  EXPECT_EQ(At(1, 0), 0xFFFFFFFFU);
  EXPECT_EQ(box.ScaleWidth(), 20.0F);
  box.ThumbnailSize = 0;
  EXPECT_EQ(At(19, 9), 0xFFFFFFFFU);
}

TEST_F(GvboxTest, A_thumbnail_has_the_depth_of_the_file_and_leaves_at_least_a_pixel) {
  box.SetPicture(Picture::FromPixels(Pixels::Make({32767, 1}, PixelFormat::Rgb, 0xFF123456), 8));
  box.Appearance = 1;
  for (const int square : {80, 1}) {
    box.ThumbnailSize = square;
    EXPECT_EQ(box.Picture().GetSize(), (Size{square, 1}));
    EXPECT_EQ(box.Picture().BitsPerPixel(), 8);
  }
  EXPECT_EQ(box.PictureWidth(), 32767);
}

TEST_F(GvboxTest, A_thumbnail_never_enlarges) {
  LoadMarks();
  box.ThumbnailSize = 80;
  box.Appearance = 0;
  EXPECT_EQ(box.Picture().GetSize(), (Size{4, 3}));
  EXPECT_EQ(At(2, 1), Marked(2, 1));
}

TEST_F(GvboxTest, Appearance_1_gives_thumbnails_a_raised_edge) {
  platform.files.AddFile("/grey.bmp",
                         AsText(EncodeBmp(Pixels::Make({60, 60}, PixelFormat::Rgb, 0xFF808080))));
  box.SetFileName("/grey.bmp");
  box.ThumbnailSize = 30;
  box.Appearance = 1;
  EXPECT_GT(At(10, 0), 0xFF808080U);
  EXPECT_LT(At(10, 29), 0xFF808080U);
  EXPECT_EQ(At(10, 10), 0xFF808080U);
  box.Appearance = 0;
  EXPECT_EQ(At(10, 0), 0xFF808080U);
  box.ThumbnailSize = 0;
  box.Appearance = 1;
  EXPECT_EQ(At(10, 0), 0xFF808080U);  // the whole picture has none
  EXPECT_EQ(NumberRaisedBy([&] { box.Appearance = 2; }), 380);
}

TEST_F(GvboxTest, Pixel_colours_have_red_in_the_low_byte) {
  LoadMarks();
  EXPECT_EQ(box.PixelColor(0, 0), 0x070000);
  EXPECT_EQ(box.PixelColor(3 * 15, 2 * 15), 0x070000 | 80 << 8 | 120);
}

TEST_F(GvboxTest, Pixel_places_follow_zoom_and_scroll) {
  platform.files.AddFile("/large.bmp", AsText(EncodeBmp(Marks({6, 5}))));
  box.SetFileName("/large.bmp");
  box.Width = 4 * 15;
  box.Height = 4 * 15;
  box.ZoomLevel = 2.0F;  // two by two pixels of the image are seen
  EXPECT_EQ(box.PixelColor(3 * 15, 15), 0x070000 | 40);
  box.SetScrollX(2);
  box.SetScrollY(1);
  EXPECT_EQ(box.PixelColor(0, 0), 0x070000 | 40 << 8 | 80);
  EXPECT_EQ(box.PixelColor(3.9F * 15, 0), 0x070000 | 40 << 8 | 120);
}

TEST_F(GvboxTest, Beside_the_image_there_is_no_colour) {
  LoadMarks();
  EXPECT_EQ(box.PixelColor(4 * 15, 0), -1);
  EXPECT_EQ(box.PixelColor(0, 3 * 15), -1);
  EXPECT_EQ(box.PixelColor(-1, 0), -1);
  box.ZoomLevel = 0.0F;
  EXPECT_EQ(box.PixelColor(0, 0), -1);
}

TEST_F(GvboxTest, Transparent_pixels_read_as_they_look_over_white) {
  box.SetPicture(Picture::FromPixels(Pixels::Make({1, 1}, PixelFormat::Argb, 0x00000000), 32));
  EXPECT_EQ(box.PixelColor(0, 0), 0xFFFFFF);
}

TEST_F(GvboxTest, The_greatest_scroll_is_what_lies_outside_the_view) {
  box.SetPicture(Picture::FromPixels(Pixels::Make({100, 60}, PixelFormat::Rgb, 0), 24));
  box.Width = 40 * 15;
  box.Height = 80 * 15;
  EXPECT_EQ(box.ScrollMaxX(), 60);
  EXPECT_EQ(box.ScrollMaxY(), 0);
  box.SetScrollX(99);
  box.SetScrollY(5);
  EXPECT_EQ(box.ScrollX(), 60);
  EXPECT_EQ(box.ScrollY(), 0);
  box.SetScrollX(-3);
  EXPECT_EQ(box.ScrollX(), 0);
  box.ZoomLevel = 4.0F;
  EXPECT_EQ(box.ScrollMaxX(), 90);
  EXPECT_EQ(box.ScrollMaxY(), 40);
}

TEST_F(GvboxTest, The_greatest_scroll_shows_the_last_pixels_at_every_zoom) {
  constexpr Size size{100, 60}, view{47, 31};
  Pixels pixels = Pixels::Make(size, PixelFormat::Rgb, 0xFF000000);
  pixels.Row(size.height - 1).back() = 0xFF123456;
  box.SetPicture(Picture::FromPixels(pixels, 24));
  box.Width = static_cast<float>(view.width) * 15;
  box.Height = static_cast<float>(view.height) * 15;
  for (const float zoom : {0.25F, 0.5F, 0.75F, 1.0F, 1.25F, 1.5F, 1.75F, 2.0F, 3.0F, 4.0F, 5.0F, 6.0F, 7.0F,
                           8.0F, 9.0F, 10.0F}) {
    box.ZoomLevel = zoom;
    box.SetScrollX(1000);
    box.SetScrollY(1000);
    const auto seen = [&](int length) { return static_cast<double>(length) / static_cast<double>(zoom); };
    // All of the last pixel is in the view, and no more than one behind it would be.
    EXPECT_GE(box.ScrollX() + seen(view.width), size.width) << zoom;
    EXPECT_GE(box.ScrollY() + seen(view.height), size.height) << zoom;
    EXPECT_TRUE(box.ScrollX() == 0 || box.ScrollX() - 1 + seen(view.width) < size.width) << zoom;
    EXPECT_TRUE(box.ScrollY() == 0 || box.ScrollY() - 1 + seen(view.height) < size.height) << zoom;
    EXPECT_EQ(box.ScrollX() == 0, seen(view.width) >= size.width) << zoom;
    // The place in the view at which the last pixel of the image begins, and that of its end.
    const auto place = [&](int pixel, int scroll) { return static_cast<float>(pixel - scroll) * zoom * 15; };
    const float right = place(size.width - 1, box.ScrollX()), low = place(size.height - 1, box.ScrollY());
    EXPECT_EQ(box.PixelColor(right, low), 0x563412) << zoom;
    EXPECT_EQ(box.PixelColor(right + zoom * 15, low), -1) << zoom;
  }
}

TEST_F(GvboxTest, A_lower_zoom_and_a_larger_view_bring_the_scroll_back_in) {
  box.SetPicture(Picture::FromPixels(Pixels::Make({100, 60}, PixelFormat::Rgb, 0), 24));
  box.Width = 40 * 15;
  box.ZoomLevel = 4.0F;
  box.SetScrollX(90);
  box.ZoomLevel = 1.0F;
  EXPECT_EQ(box.ScrollX(), 60);
  box.ZoomLevel = 4.0F;
  EXPECT_EQ(box.ScrollX(), 60);
  box.ZoomLevel = 1.0F;
  box.Width = 90 * 15;
  EXPECT_EQ(box.ScrollX(), 10);
}

TEST_F(GvboxTest, Observers_are_told_of_everything_that_changes_what_is_seen) {
  int changes = 0;
  const Connection connection = box.Changed.Connect([&] { ++changes; });
  const auto tells = [&](const std::function<void()>& step) {
    changes = 0;
    step();
    return changes > 0;
  };
  EXPECT_TRUE(tells([&] { box.SetFileName(path); }));
  EXPECT_TRUE(tells([&] { box.Rotate(1); }));
  EXPECT_TRUE(tells([&] { box.Brightness(5); }));
  EXPECT_TRUE(tells([&] { box.ZoomLevel = 2.0F; }));
  EXPECT_TRUE(tells([&] { box.SetScrollX(1); }));
  EXPECT_TRUE(tells([&] { box.SetScrollY(1); }));
  EXPECT_TRUE(tells([&] { box.SetPicture({}); }));
  EXPECT_TRUE(tells([&] { LoadFails(); }));
}

TEST_F(GvboxTest, A_new_zoom_fires_image_changed_and_the_same_does_not) {
  LoadMarks();
  box.ZoomLevel = 2.5F;
  box.ZoomLevel = 2.5F;
  EXPECT_THAT(told, ElementsAre("changed"));
}

TEST_F(GvboxTest, A_zoom_beyond_what_places_can_be_told_at_is_refused) {
  box.SetPicture(Picture::FromPixels(Pixels::Make({30000, 1}, PixelFormat::Rgb, 0), 24));
  box.ZoomLevel = 8.0F;
  EXPECT_EQ(NumberRaisedBy([&] { box.ZoomLevel = 9.0F; }), 380);
  EXPECT_EQ(NumberRaisedBy([&] { box.ZoomLevel = -0.5F; }), 380);
  EXPECT_EQ(box.ZoomLevel, 8.0F);
  box.SetPicture(Picture::FromPixels(Pixels::Make({6000, 4}, PixelFormat::Rgb, 0), 24));
  box.ZoomLevel = 10.0F;
}

}  // namespace
}  // namespace lumidex
