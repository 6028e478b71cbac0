#include "controls/gvbox_world.h"
#include "gallery/encoders/emf_encoder.h"
#include "pictures/pixels.h"

namespace lumidex {
namespace {

using testing::ElementsAre;

TEST_F(GvboxTest, An_empty_control_reports_zeros) {
  EXPECT_EQ(box.PictureWidth(), 0);
  EXPECT_EQ(box.BitsPerPixel(), 0);
  EXPECT_TRUE(box.Picture().IsEmpty());
  EXPECT_EQ(box.ScaleWidth(), 0.0F);
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
