#include "controls/gvbox_world.h"
#include "gallery/encoders/cut_encoder.h"
#include "gallery/encoders/emf_encoder.h"

namespace lumidex {
namespace {

using testing::ElementsAre;

TEST_F(GvboxTest, A_load_gives_the_files_size_and_depth_and_fires_image_changed) {
  box.SetFileName(path);
  EXPECT_EQ(box.FileName(), path);
  EXPECT_EQ(box.PictureWidth(), 4);
  EXPECT_EQ(box.PictureHeight(), 3);
  EXPECT_EQ(box.BitsPerPixel(), 24);
  EXPECT_EQ(box.Picture().Type(), PictureType::Bitmap);
  EXPECT_THAT(told, ElementsAre("changed"));
}

TEST_F(GvboxTest, An_empty_control_reports_zeros) {
  EXPECT_EQ(box.PictureWidth(), 0);
  EXPECT_EQ(box.BitsPerPixel(), 0);
  EXPECT_TRUE(box.Picture().IsEmpty());
  EXPECT_EQ(box.ScaleWidth(), 0.0F);
}

TEST_F(GvboxTest, An_empty_control_gives_no_thumbnail) {
  box.ThumbnailSize = 80;
  EXPECT_TRUE(box.Picture().IsEmpty());
}

TEST_F(GvboxTest, A_form_that_is_unloaded_forgets_the_image) {
  form.Load();
  LoadMarks();
  box.Rotate(1);
  box.ThumbnailSize = 2;
  form.Unload();
  EXPECT_EQ(box.FileName(), "");
  EXPECT_TRUE(box.Picture().IsEmpty());
  EXPECT_EQ(box.ThumbnailSize, 0);
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

TEST_F(GvboxTest, The_empty_path_releases_the_image) {
  LoadMarks();
  box.SetFileName("");
  EXPECT_TRUE(box.Picture().IsEmpty());
  EXPECT_EQ(box.FileName(), "");
  EXPECT_EQ(box.PictureWidth(), 0);
}

TEST_F(GvboxTest, The_file_opened_last_is_kept_until_the_empty_path) {
  LoadMarks();
  const Picture first = box.Picture();
  box.SetFileName(path);
  EXPECT_EQ(box.Picture(), first);
  box.SetFileName("");
  box.SetFileName(path);
  EXPECT_FALSE(box.Picture() == first);
}

TEST_F(GvboxTest, A_load_that_fails_leaves_nothing_usable_but_the_path) {
  LoadMarks();
  EXPECT_EQ(NumberRaisedBy([&] { box.SetFileName("/bad.bmp"); }), 481);
  EXPECT_EQ(box.FileName(), "/bad.bmp");
  EXPECT_EQ(NumberRaisedBy([&] { box.SetFileName("/none.bmp"); }), 53);
  EXPECT_EQ(NumberRaisedBy([&] { box.Picture(); }), 481);
  EXPECT_EQ(NumberRaisedBy([&] { box.PictureWidth(); }), 481);
  EXPECT_EQ(NumberRaisedBy([&] { box.BitsPerPixel(); }), 481);
  EXPECT_EQ(NumberRaisedBy([&] { box.ScaleHeight(); }), 481);
  EXPECT_EQ(NumberRaisedBy([&] { box.Rotate(1); }), 481);
  EXPECT_EQ(NumberRaisedBy([&] { box.Brightness(1); }), 481);
  EXPECT_EQ(NumberRaisedBy([&] { box.PixelColor(0, 0); }), 481);
  EXPECT_EQ(NumberRaisedBy([&] { box.SaveJPEG("/out.jpg"); }), 481);
  EXPECT_EQ(NumberRaisedBy([&] { box.PaintPicture({}, 0, 0, 1, 1, 0, 0, 1, 1); }), 481);
}

TEST_F(GvboxTest, The_next_load_makes_it_usable_again) {
  LoadFails();
  LoadMarks();
  EXPECT_EQ(box.PictureWidth(), 4);
}

TEST_F(GvboxTest, A_picture_that_is_put_makes_it_usable_again) {
  LoadFails();
  const Picture picture = Picture::FromPixels(Marks({5, 2}), 24);
  box.SetPicture(picture);
  EXPECT_EQ(box.Picture(), picture);
  EXPECT_EQ(box.PictureWidth(), 5);
  EXPECT_EQ(box.FileName(), "/bad.bmp");
}

TEST_F(GvboxTest, The_empty_path_makes_an_empty_control_of_one_that_failed) {
  LoadFails();
  box.SetFileName("");
  EXPECT_TRUE(box.Picture().IsEmpty());
  EXPECT_EQ(box.BitsPerPixel(), 0);
}

TEST_F(GvboxTest, Neither_a_load_that_fails_nor_a_zoom_after_it_changes_an_image) {
  LoadFails();
  box.ZoomLevel = 2.0F;
  EXPECT_TRUE(told.empty());
  EXPECT_EQ(box.ScrollMaxX(), 0);
}

TEST_F(GvboxTest, A_directory_in_the_place_of_the_file_fails_at_the_next_load) {
  LoadMarks();
  platform.files.Remove(path);
  platform.files.AddDirectory(path);
  EXPECT_EQ(NumberRaisedBy([&] { box.SetFileName(path); }), 75);
  EXPECT_EQ(NumberRaisedBy([&] { box.Picture(); }), 481);
}

TEST_F(GvboxTest, The_same_path_again_decodes_the_file_afresh) {
  LoadMarks();
  box.Rotate(1);
  box.Brightness(100);
  box.SetFileName(box.FileName());
  EXPECT_EQ(box.PictureWidth(), 4);
  EXPECT_EQ(At(1, 2), Marked(1, 2));
}

TEST_F(GvboxTest, A_file_that_changed_is_seen_at_the_next_load) {
  LoadMarks();
  platform.files.AddFile(path, AsText(EncodeBmp(Marks({6, 2}))));
  box.SetFileName(path);
  EXPECT_EQ(box.PictureWidth(), 6);
}

TEST_F(GvboxTest, A_file_that_is_gone_fails_at_the_next_load) {
  LoadMarks();
  platform.files.Remove(path);
  EXPECT_EQ(NumberRaisedBy([&] { box.SetFileName(path); }), 53);
}

TEST_F(GvboxTest, What_was_read_ahead_is_taken_as_long_as_the_file_stands) {
  const auto whole = [](Size full) { return full; };
  box.ReadFilesAhead({path}, whole);
  EXPECT_TRUE(platform.readAhead.RunNext());
  const Picture read = platform.readAhead.Find(path, PictureStamp(platform.files, path), {});
  ASSERT_FALSE(read.IsEmpty());
  box.SetFileName(path);
  EXPECT_EQ(box.Picture(), read);
  box.SetFileName("");
  platform.files.AddFile(path, AsText(EncodeBmp(Marks({6, 2}))));
  box.SetFileName(path);
  EXPECT_EQ(box.PictureWidth(), 6);
}

TEST_F(GvboxTest, Errors_are_the_same_after_reading_ahead) {
  platform.files.AddFile("/gone.bmp", AsText(EncodeBmp(Marks())));
  platform.files.AddFile("/folder.bmp", AsText(EncodeBmp(Marks())));
  platform.files.AddFile("/spoilt.bmp", AsText(EncodeBmp(Marks())));
  platform.files.AddFile("/locked.bmp", AsText(EncodeBmp(Marks())));
  box.ReadFilesAhead({"/bad.bmp", "/gone.bmp", "/folder.bmp", "/spoilt.bmp", "/locked.bmp"}, nullptr);
  while (platform.readAhead.RunNext()) {
  }
  platform.files.Remove("/gone.bmp");
  platform.files.Remove("/folder.bmp");
  platform.files.AddDirectory("/folder.bmp");
  platform.files.AddFile("/spoilt.bmp", "no picture");
  platform.files.AddFile("/locked.bmp", "secret");
  platform.files.SetLocked("/locked.bmp", true);
  EXPECT_EQ(NumberRaisedBy([&] { box.SetFileName("/bad.bmp"); }), 481);
  EXPECT_EQ(NumberRaisedBy([&] { box.SetFileName("/gone.bmp"); }), 53);
  EXPECT_EQ(NumberRaisedBy([&] { box.SetFileName("/folder.bmp"); }), 75);
  EXPECT_EQ(NumberRaisedBy([&] { box.SetFileName("/spoilt.bmp"); }), 481);
  EXPECT_EQ(NumberRaisedBy([&] { box.SetFileName("/locked.bmp"); }), 70);
}

TEST_F(GvboxTest, A_picture_that_is_offered_is_taken_as_long_as_the_file_stands) {
  const Picture offered = OpenPicture(platform.files, path);
  const OpenedPicture opened{path, PictureStamp(platform.files, path), {}, offered};
  box.OfferOpened(opened);
  box.SetFileName(path);
  EXPECT_EQ(box.Picture(), offered);
  platform.files.AddFile(path, AsText(EncodeBmp(Marks({6, 2}))));
  box.OfferOpened(opened);
  box.SetFileName(path);
  EXPECT_EQ(box.PictureWidth(), 6);
}

TEST_F(GvboxTest, A_palette_file_that_changed_is_seen_at_the_next_load) {
  const auto writePalette = [&](std::uint32_t first) {
    platform.files.AddFile("/halo.pal", AsText(EncodeCutPalette({first, 0xFFFFFFFFU})));
  };
  platform.files.AddFile("/halo.cut", AsText(EncodeCut({{1, 1}, {}, {0}})));
  writePalette(0xFFFF0000);
  box.SetFileName("/halo.cut");
  EXPECT_EQ(At(0, 0), 0xFFFF0000U);
  writePalette(0xFF0000FF);
  box.SetFileName("/halo.cut");
  EXPECT_EQ(At(0, 0), 0xFF0000FFU);
  platform.files.Remove("/halo.pal");
  box.SetFileName("/halo.cut");
  EXPECT_EQ(At(0, 0), 0xFF000000U);
}

TEST_F(GvboxTest, Direction_1_turns_to_the_right_and_0_to_the_left) {
  LoadMarks();
  box.Rotate(1);
  EXPECT_EQ(box.PictureWidth(), 3);
  EXPECT_EQ(box.PictureHeight(), 4);
  EXPECT_EQ(At(0, 0), Marked(0, 2));  // the lower left corner has come up
  EXPECT_EQ(At(2, 3), Marked(3, 0));
  EXPECT_THAT(told, ElementsAre("changed"));
  box.Rotate(0);
  box.Rotate(0);
  EXPECT_EQ(At(0, 0), Marked(3, 0));
  EXPECT_EQ(At(2, 3), Marked(0, 2));
}

TEST_F(GvboxTest, Four_turns_give_the_picture_back) {
  LoadMarks();
  for (int i = 0; i < 4; ++i) box.Rotate(1);
  EXPECT_EQ(At(3, 2), Marked(3, 2));
  EXPECT_EQ(At(0, 1), Marked(0, 1));
}

TEST_F(GvboxTest, Without_an_image_nothing_can_be_turned) {
  EXPECT_EQ(NumberRaisedBy([&] { box.Rotate(1); }), 481);
  LoadMarks();
  EXPECT_EQ(NumberRaisedBy([&] { box.Rotate(2); }), 5);
  EXPECT_EQ(box.PictureWidth(), 4);
}

TEST_F(GvboxTest, The_depth_stays_that_of_the_file) {
  LoadMarks();
  box.Rotate(1);
  box.Contrast(10);
  EXPECT_EQ(box.BitsPerPixel(), 24);
  EXPECT_EQ(box.Picture().BitsPerPixel(), 24);
}

TEST_F(GvboxTest, Filters_act_one_after_the_other) {
  LoadMarks();
  box.Brightness(100);
  EXPECT_EQ(At(0, 0), 0xFFFFFFFFU);
  box.ColorBalance(-100, 0, -20);
  EXPECT_EQ(At(0, 0), 0xFF00FFCCU);
  box.Contrast(-100);
  EXPECT_EQ(At(0, 0), 0xFF808080U);
  EXPECT_EQ(told.size(), 3U);
}

TEST_F(GvboxTest, Filters_of_zero_keep_every_pixel) {
  LoadMarks();
  box.Brightness(0);
  box.Contrast(0);
  box.ColorBalance(0, 0, 0);
  for (int y = 0; y < 3; ++y) {
    for (int x = 0; x < 4; ++x) EXPECT_EQ(At(x, y), Marked(x, y));
  }
}

TEST_F(GvboxTest, A_filter_that_refuses_its_amount_keeps_the_image) {
  LoadMarks();
  EXPECT_EQ(NumberRaisedBy([&] { box.Brightness(101); }), 5);
  EXPECT_EQ(NumberRaisedBy([&] { box.ColorBalance(0, 0, -101); }), 5);
  EXPECT_EQ(At(1, 1), Marked(1, 1));
}

TEST_F(GvboxTest, Without_an_image_filters_and_painting_do_nothing) {
  box.AutoRedraw = 1;
  box.Brightness(10);
  FlipAcross();
  EXPECT_TRUE(box.Picture().IsEmpty());
  EXPECT_TRUE(told.empty());
}

TEST_F(GvboxTest, A_picture_given_out_is_not_changed_by_what_follows) {
  LoadMarks();
  box.Brightness(10);
  const Picture shown = box.Picture();
  const std::uint32_t before = shown.FullPixels().Row(0)[1];
  box.Brightness(50);
  EXPECT_EQ(shown.FullPixels().Row(0)[1], before);
  EXPECT_FALSE(box.Picture() == shown);
}

TEST_F(GvboxTest, Painting_itself_with_a_negative_width_flips) {
  LoadMarks();
  box.AutoRedraw = 1;
  FlipAcross();
  EXPECT_EQ(At(0, 1), Marked(3, 1));
  EXPECT_EQ(At(3, 2), Marked(0, 2));
  FlipAcross();
  EXPECT_EQ(At(0, 1), Marked(0, 1));
  FlipDown();
  EXPECT_EQ(At(2, 0), Marked(2, 2));
  FlipDown();
  EXPECT_EQ(At(2, 0), Marked(2, 0));
}

TEST_F(GvboxTest, A_flip_keeps_a_turn_and_a_filter) {
  LoadMarks();
  box.Rotate(1);
  box.Brightness(20);
  box.AutoRedraw = 1;
  FlipAcross();
  EXPECT_EQ(box.PictureWidth(), 3);
  EXPECT_EQ(At(2, 0), Marked(0, 2) + 0x333333);
}

TEST_F(GvboxTest, What_is_painted_without_auto_redraw_does_not_last) {
  LoadMarks();
  FlipAcross();
  EXPECT_EQ(At(0, 0), Marked(0, 0));
}

TEST_F(GvboxTest, A_part_of_another_picture_is_painted_to_its_place) {
  LoadMarks();
  box.AutoRedraw = 1;
  const Picture white = Picture::FromPixels(Pixels::Make({2, 2}, PixelFormat::Rgb, 0xFFFFFFFF), 24);
  box.PaintPicture(white, 1, 1, 2, 1, 0, 0, 2, 2);
  EXPECT_EQ(At(1, 1), 0xFFFFFFFFU);
  EXPECT_EQ(At(2, 1), 0xFFFFFFFFU);
  EXPECT_EQ(At(3, 1), Marked(3, 1));
  EXPECT_EQ(At(1, 2), Marked(1, 2));
  EXPECT_EQ(NumberRaisedBy([&] { box.PaintPicture(white, 1e20F, 0, 1, 1, 0, 0, 1, 1); }), 6);
}

TEST_F(GvboxTest, A_drawing_becomes_a_bitmap_when_it_is_turned) {
  platform.files.AddFile("/drawing.emf", AsText(EmfWriter(40, 20).MoveTo(1, 1).LineTo(30, 15).File()));
  box.SetFileName("/drawing.emf");
  EXPECT_NE(box.Picture().Type(), PictureType::Bitmap);
  const int width = box.PictureWidth(), height = box.PictureHeight();
  box.Rotate(1);
  EXPECT_EQ(box.Picture().Type(), PictureType::Bitmap);
  EXPECT_EQ(box.PictureWidth(), height);
  EXPECT_EQ(box.PictureHeight(), width);
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
  box.Width = 90 * 15;
  EXPECT_EQ(box.ScrollX(), 10);
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

TEST_F(GvboxTest, Options_outside_their_values_are_refused) {
  for (Property<int> Gvbox::*option : {&Gvbox::DitherMethod, &Gvbox::DCTMethod, &Gvbox::JPGDitherMethod}) {
    (box.*option) = 2;
    EXPECT_EQ(NumberRaisedBy([&] { (box.*option) = 3; }), 380);
    EXPECT_EQ(NumberRaisedBy([&] { (box.*option) = -1; }), 380);
    EXPECT_EQ((box.*option).Get(), 2);
  }
  EXPECT_EQ(NumberRaisedBy([&] { box.AutoRedraw = 2; }), 380);
  EXPECT_EQ(NumberRaisedBy([&] { box.RetainBitmap = -1; }), 380);
}

TEST_F(GvboxTest, Every_property_can_be_read_by_name) {
  LoadMarks();
  EXPECT_EQ(box.ReadProperty("FileName"), path);
  EXPECT_EQ(box.ReadProperty("Picture"), "4 x 3");
  EXPECT_EQ(box.ReadProperty("PictureHeight"), "3");
  EXPECT_EQ(box.ReadProperty("ScaleWidth"), "4");
  EXPECT_EQ(box.ReadProperty("ScaleHeight"), "3");
  for (const char* name :
       {"FancyUpsizing", "TwoPassQuantize", "ScaleMode",    "DitherMethod", "ThumbnailSize",
        "DCTMethod",     "JPGDitherMethod", "PictureWidth", "JPGOptimize",  "JPGQuality",
        "JPGSmoothing",  "BitsPerPixel",    "ScrollX",      "ScrollY",      "ScrollMaxX",
        "ScrollMaxY",    "AutoRedraw",      "RetainBitmap", "ZoomLevel",    "Appearance"}) {
    EXPECT_TRUE(box.ReadProperty(name)) << name;
  }
}

}  // namespace
}  // namespace lumidex
