
#include "imaging/current_picture.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "forms/WPaper2.h"
#include "forms/checkjpg.h"
#include "forms/frmPreferences.h"
#include "gallery/encoders/jpeg_encoder.h"
#include "imaging/fit.h"
#include "imaging/proper_names.h"
#include "imaging/working_image.h"
#include "imaging/zoom_menu.h"
#include "lists/image_lists.h"
#include "pictures/pixels.h"
#include "support/test_program.h"

namespace lumidex {
namespace {

class CurrentPicture : public TestProgram {
 protected:
  void SetUp() override { ShowMainWindow(); }

  // An area of that many pixels.
  void SetArea(int width, int height) {
    app.WPaper2.Picture1.Width = static_cast<float>(width) * twipsPerPixel + 2 * PictureBox::BorderWidth;
    app.WPaper2.Picture1.Height = static_cast<float>(height) * twipsPerPixel + 2 * PictureBox::BorderWidth;
  }
  void Show(int width, int height, float zoom = 1.0F) {
    platform.files.AddFile("C:\\p.bmp", BitmapFile(width, height));
    app.WPaper2.lblCount.Caption = "1";
    DisplayCurrentImage(app, "C:\\p.bmp", false, zoom);
  }
  void ExpectBox(float left, float top, float width, float height) {
    const ImageBox& box = app.WPaper2.Image1;
    EXPECT_EQ(box.Left, left);
    EXPECT_EQ(box.Top, top);
    EXPECT_EQ(box.Width, width);
    EXPECT_EQ(box.Height, height);
    EXPECT_TRUE(box.Visible);
  }
};

TEST_F(CurrentPicture, A_smaller_picture_is_centred_and_never_enlarged) {
  SetArea(400, 300);
  Show(101, 50);
  ExpectBox(149.5F, 125, 101, 50);
}

TEST_F(CurrentPicture, A_picture_too_wide_is_brought_to_the_width) {
  SetArea(400, 300);
  Show(800, 200);
  ExpectBox(0, 100, 400, 100);
}

TEST_F(CurrentPicture, A_picture_too_high_is_brought_to_the_height) {
  SetArea(400, 300);
  Show(200, 600);
  ExpectBox(150, 0, 100, 300);
}

TEST_F(CurrentPicture, The_greater_overshoot_decides) {
  SetArea(400, 300);
  Show(800, 600);
  ExpectBox(0, 0, 400, 300);
}

TEST_F(CurrentPicture, The_second_side_is_not_checked_again) {
  SetArea(400, 300);
  Show(1000, 890);  // overshoots 600 and 590: by width, height becomes 356
  ExpectBox(0, -28, 400, 356);
}

TEST_F(CurrentPicture, Equal_overshoots_keep_the_size) {
  SetArea(400, 300);
  Show(600, 500);
  ExpectBox(-100, -100, 600, 500);
}

TEST_F(CurrentPicture, A_side_equal_to_its_limit_disables_the_fit) {
  SetArea(400, 300);
  Show(500, 300);
  ExpectBox(-50, 0, 500, 300);
}

TEST_F(CurrentPicture, Stretched_it_fills_the_whole_area) {
  SetArea(400, 300);
  app.frmPreferences.chkStretch.Value = 1;
  Show(100, 100);
  ExpectBox(0, 0, 400, 300);
}

TEST_F(CurrentPicture, What_is_said_beforehand_of_its_size_comes_true) {
  SetArea(400, 300);
  for (const auto& [full, zoom] : {std::pair(Size{800, 200}, 1.0F),
                                   {{200, 600}, 1.0F},
                                   {{101, 50}, 2.0F},
                                   {{1000, 900}, 0.5F},
                                   {{640, 480}, 5.0F}}) {
    Show(full.width, full.height, zoom);
    const Size said = ShownIn(*app.lastArea, full, zoom);
    EXPECT_EQ(app.WPaper2.Image1.Width, static_cast<float>(said.width)) << full.width;
    EXPECT_EQ(app.WPaper2.Image1.Height, static_cast<float>(said.height)) << full.width;
  }
  app.frmPreferences.chkStretch.Value = 1;
  Show(20, 20);
  EXPECT_EQ(app.lastArea, (PictureArea{{400, 300}, true}));
  EXPECT_EQ(ShownIn(*app.lastArea, {20, 20}, 1), (Size{400, 300}));
}

TEST_F(CurrentPicture, Of_a_size_beyond_16_bits_the_picture_s_own_is_said) {
  EXPECT_EQ(ShownIn({{400, 300}}, {30000, 20}, 2), (Size{30000, 20}));
}

TEST_F(CurrentPicture, Zoom_zero_gives_no_size) {
  SetArea(400, 300);
  Show(100, 100, 0.0F);
  ExpectBox(200, 150, 0, 0);
  EXPECT_EQ(PanelText(4), "0%");
}

TEST_F(CurrentPicture, Zoomed_sizes_round_a_half_to_even) {
  SetArea(400, 300);
  Show(25, 35, 0.5F);  // 12.5 and 17.5
  EXPECT_EQ(app.ImageWidth, 12);
  EXPECT_EQ(app.ImageHeight, 18);
  EXPECT_EQ(PanelText(4), "50%");
}

TEST_F(CurrentPicture, A_product_above_16_bits_overflows_with_the_picture_hidden_and_the_hourglass_on) {
  SetArea(400, 300);
  EXPECT_THROW(Show(7000, 1, 5.0F), RunTimeError);
  EXPECT_FALSE(app.WPaper2.Image1.Visible);
  EXPECT_EQ(app.WPaper2.Pointer, MousePointer::Hourglass);
}

TEST_F(CurrentPicture, A_missing_file_leaves_the_old_picture) {
  SetArea(400, 300);
  Show(100, 100);
  const Picture shown = app.WPaper2.Image1.Picture;
  DisplayCurrentImage(app, "C:\\gone.bmp", false, 1.0F);
  DisplayCurrentImage(app, "  ", false, 1.0F);
  EXPECT_EQ(app.WPaper2.Image1.Picture, shown);
  EXPECT_EQ(app.CurrentImagePath, "C:\\p.bmp");
  EXPECT_EQ(app.WPaper2.Pointer, MousePointer::Default);
}

TEST_F(CurrentPicture, An_unreadable_file_keeps_the_picture_and_says_nothing) {
  SetArea(400, 300);
  Show(100, 80);
  const Picture shown = app.WPaper2.Image1.Picture;
  platform.files.AddFile("C:\\bad.bmp", "not a picture");
  DisplayCurrentImage(app, "C:\\bad.bmp", false, 1.0F);
  EXPECT_EQ(app.WPaper2.Image1.Picture, shown);
  EXPECT_TRUE(app.WPaper2.Image1.Visible);
  EXPECT_EQ(app.ImageWidth, 100);
  EXPECT_TRUE(platform.dialogs.messages.empty());
}

TEST_F(CurrentPicture, The_natural_size_is_kept_apart) {
  SetArea(400, 300);
  Show(800, 600);
  EXPECT_EQ(app.NaturalWidth, 800);
  EXPECT_EQ(app.NaturalHeight, 600);
  EXPECT_EQ(app.ImageWidth, 400);
}

TEST_F(CurrentPicture, A_path_with_gif_anywhere_goes_through_the_platforms_loader) {
  platform.files.AddFile("C:\\my.gifs\\a.bmp", BitmapFile(10, 10));
  app.WPaper2.lblCount.Caption = "1";
  DisplayCurrentImage(app, "C:\\my.gifs\\a.bmp", false, 1.0F);
  EXPECT_FALSE(app.WPaper2.Image1.Picture.Get() == app.checkjpg.Picture1.Picture());
  DisplayCurrentImage(app, "C:\\my.gifs\\a.bmp", true, 1.0F);
  Show(10, 10);
  EXPECT_EQ(app.WPaper2.Image1.Picture.Get(), app.checkjpg.Picture1.Picture());
}

TEST_F(CurrentPicture, Choosing_a_zoom_level_ticks_it_alone_and_shows_the_selected_entry) {
  FillDisplayList(1, 40, 20);
  app.WPaper2.LstRight.SetListIndex(0);
  SelectZoomLevel(app, 8);
  for (int level = 1; level <= 11; ++level) {
    EXPECT_EQ(app.WPaper2.mnuEditZoomLevel(level).Checked, level == 8) << level;
  }
  EXPECT_EQ(app.checkjpg.Picture1.ZoomLevel, 2.0F);
  EXPECT_EQ(app.ImageWidth, 80);
  EXPECT_EQ(PanelText(4), "200%");
}

TEST_F(CurrentPicture, Zoom_steps_stop_at_the_ends) {
  FillDisplayList(1);
  app.WPaper2.LstRight.SetListIndex(0);
  for (int i = 0; i < 5; ++i) StepZoomDown(app);
  EXPECT_TRUE(app.WPaper2.mnuEditZoomLevel(1).Checked);
  for (int i = 0; i < 15; ++i) StepZoomUp(app);
  EXPECT_TRUE(app.WPaper2.mnuEditZoomLevel(11).Checked);
  EXPECT_EQ(PanelText(4), "500%");
}

TEST_F(CurrentPicture, A_zoom_step_with_nothing_checked_starts_from_the_last) {
  for (int level = 1; level <= 11; ++level) app.WPaper2.mnuEditZoomLevel(level).Checked = false;
  StepZoomDown(app);
  EXPECT_TRUE(app.WPaper2.mnuEditZoomLevel(10).Checked);
}

TEST_F(CurrentPicture, Names_are_put_into_proper_case) {
  EXPECT_EQ(ProperCaseName(app, "a.b.c"), "A.B.C");
  EXPECT_EQ(ProperCaseName(app, "C:\\MY PICS\\sea side.JPG"), "C:\\My Pics\\Sea Side.Jpg");
  EXPECT_EQ(ProperCaseName(app, "a.\\b"), "A.\\B");
  EXPECT_EQ(ProperCaseName(app, ""), "");
  EXPECT_EQ(ProperCaseName(app, "a."), "A.");
  EXPECT_EQ(ProperCaseName(app, ".gif"), ".gif");
  EXPECT_EQ(ProperCaseName(app, "a..b.c"), "A..b.C");
  EXPECT_EQ(ProperCaseName(app, "\u00C9T\u00C9 \u00E9t\u00E9.\u00E9"), "\u00C9t\u00E9 \u00C9t\u00E9.\u00C9");
  EXPECT_EQ(ProperFileName(app, "C:\\MY PICS\\sea side.JPG"), "Sea Side.Jpg");
  EXPECT_EQ(ProperFileName(app, "photo.jpg"), "Photo.Jpg");
}

TEST_F(CurrentPicture, Image_facts_that_can_not_be_read_stay_as_they_were) {
  platform.files.AddFile("C:\\bad.bmp", "x");
  IgnoreError([&] { app.checkjpg.Picture1.SetFileName("C:\\bad.bmp"); });
  std::int16_t width = 1, height = 2;
  float depth = 3;
  GetImageInfo(app, "", width, height, depth);
  EXPECT_EQ(width, 1);
  EXPECT_EQ(height, 2);
  EXPECT_EQ(depth, 3.0F);
}

TEST_F(CurrentPicture, A_picture_deleted_between_search_and_display_is_named_as_not_available) {
  FillDisplayList(1);
  platform.files.Remove("C:\\Pics\\p0.bmp");
  app.WPaper2.LstRight.SetListIndex(0);
  EXPECT_EQ(PanelText(2), "P0.Bmp - Not Available");
}

class Neighbours : public CurrentPicture {
 protected:
  void SetUp() override {
    CurrentPicture::SetUp();
    SetArea(400, 300);
    FillDisplayList(4);
  }
  // Which of the four pictures have been read ahead or were shown last.
  std::string Ready() {
    std::string numbers;
    for (int i = 0; i < 4; ++i) {
      const std::string path = DisplayText(i);
      const auto facts = platform.files.Look(path);
      if (!platform.decoding.Find(path, facts->stamp, {}).IsEmpty()) numbers += Number(i);
    }
    return numbers;
  }
};

TEST_F(Neighbours, The_next_picture_is_read_first_then_the_one_before) {
  app.WPaper2.LstRight.SetListIndex(1);
  EXPECT_TRUE(platform.decoding.RunNext());
  EXPECT_EQ(Ready(), "12");
  app.WPaper2.LstRight.SetListIndex(2);
  EXPECT_TRUE(platform.decoding.RunNext());
  EXPECT_FALSE(platform.decoding.RunNext());  // the one before was shown last
  EXPECT_EQ(Ready(), "123");
}

TEST_F(Neighbours, They_go_round_the_ends_of_the_list) {
  app.WPaper2.LstRight.SetListIndex(0);
  while (platform.decoding.RunNext()) {
  }
  EXPECT_EQ(Ready(), "013");
}

TEST_F(Neighbours, The_step_takes_what_was_read_ahead) {
  app.WPaper2.LstRight.SetListIndex(0);
  while (platform.decoding.RunNext()) {
  }
  NextImage(app);
  EXPECT_EQ(app.CurrentImagePath, DisplayText(1));
  EXPECT_NE(app.checkjpg.Picture1.Picture().HeldBytes(), 0U);
}

TEST_F(Neighbours, A_file_replaced_since_is_shown_as_it_is_now) {
  app.WPaper2.LstRight.SetListIndex(0);
  while (platform.decoding.RunNext()) {
  }
  platform.files.AddFile(DisplayText(1), BitmapFile(77, 55));
  NextImage(app);
  EXPECT_EQ(app.checkjpg.Picture1.PictureWidth(), 77);
}

TEST_F(Neighbours, A_single_entry_has_none) {
  ZapDisplayList(app);
  FillDisplayList(1);
  app.WPaper2.LstRight.SetListIndex(0);
  EXPECT_FALSE(platform.decoding.RunNext());
}

TEST_F(Neighbours, An_emptied_list_lets_them_go) {
  app.WPaper2.LstRight.SetListIndex(0);
  while (platform.decoding.RunNext()) {
  }
  const std::string path = DisplayText(1);
  ZapDisplayList(app);
  EXPECT_TRUE(platform.decoding.Find(path, platform.files.Look(path)->stamp, {}).IsEmpty());
}

TEST_F(Neighbours, They_are_decoded_at_the_size_they_will_be_shown_at) {
  const auto bytes = EncodeJpeg(Pixels::Make({1600, 1200}, PixelFormat::Rgb, 0xFF336699), 90);
  platform.files.AddFile(DisplayText(1), {bytes.begin(), bytes.end()});
  app.WPaper2.LstRight.SetListIndex(0);
  EXPECT_TRUE(platform.decoding.RunNext());
  NextImage(app);
  EXPECT_EQ(app.checkjpg.Picture1.Picture().HeldBytes(), 400U * 300 * 4);
}

}  // namespace
}  // namespace lumidex
