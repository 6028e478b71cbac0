#include "core/enable_state.h"
#include "forms/WPaper2.h"
#include "pictures/pixels.h"
#include "support/test_program.h"

namespace lumidex {
namespace {

using EnableState = TestProgram;

TEST_F(EnableState, With_both_lists_empty_everything_that_needs_a_picture_is_off) {
  UpdateEnableState(app);
  for (const char* name :
       {"mnuEdit", "mnuPicture", "mnuSlideShow", "mnuFileSave", "mnuFileSaveAs", "mnuFileClear",
        "mnuPictureRemoveOne", "cmdLeftOne", "cmdLeftAll", "cmdUp", "cmdDown", "cmdRightOne", "cmdRightAll",
        "mnuPictureAddOne", "mnuPictureImageSummary", "mnuEditZoom"}) {
    EXPECT_EQ(app.WPaper2.Find(name)->ReadProperty("Enabled"), "False") << name;
  }
  EXPECT_EQ(app.WPaper2.LstLeft.BackColor, 0x808080);
  EXPECT_EQ(app.WPaper2.LstRight.BackColor, 0x808080);
}

TEST_F(EnableState, The_count_label_decides_for_menus_and_toolbar) {
  app.WPaper2.lblCount.Caption = "1";
  UpdateEnableState(app);
  EXPECT_TRUE(app.WPaper2.mnuPicture.Enabled);
  const Toolbar& toolbar = app.WPaper2.Toolbar1;
  for (int position = 1; position <= 19; ++position)
    EXPECT_TRUE(toolbar.Button(position).Enabled) << position;
  // The list itself is empty, and that is what its own buttons go by.
  EXPECT_FALSE(app.WPaper2.cmdUp.Enabled);
}

TEST_F(EnableState, Without_pictures_only_five_toolbar_buttons_stay) {
  UpdateEnableState(app);
  for (int position = 1; position <= 19; ++position) {
    const bool stays = position == 1 || position == 2 || position == 4 || position == 17 || position == 19;
    EXPECT_EQ(app.WPaper2.Toolbar1.Button(position).Enabled, stays) << position;
  }
}

TEST_F(EnableState, A_filled_list_has_its_colour_and_its_buttons) {
  app.WPaper2.LstLeft.AddItem("C:\\a.bmp");
  UpdateEnableState(app);
  EXPECT_EQ(app.WPaper2.LstLeft.BackColor, 0xFFC0C0);
  EXPECT_TRUE(app.WPaper2.cmdRightOne.Enabled);
  EXPECT_TRUE(app.WPaper2.mnuPictureAddAll.Enabled);
  EXPECT_FALSE(app.WPaper2.mnuPictureAddAll.IsReachable()) << "its menu is off with the others";
}

TEST_F(EnableState, Emptying_clears_the_picture_and_its_type) {
  app.WPaper2.Image1.Picture = Picture::FromPixels(Pixels::Make({2, 2}, PixelFormat::Rgb, 0), 24);
  app.WPaper2.StatusBar1.SetPicture(2, "BMP");
  UpdateEnableState(app);
  EXPECT_TRUE(app.WPaper2.Image1.Picture.Get().IsEmpty());
  EXPECT_EQ(app.WPaper2.StatusBar1.Panel(2).PictureKey, "");
}

}  // namespace
}  // namespace lumidex
