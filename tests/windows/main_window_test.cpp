#include "forms/WPaper2.h"
#include "support/test_program.h"
#include "windows/WPaper2_layout.h"

namespace lumidex {
namespace {

class MainWindow : public TestProgram {
 protected:
  void SetUp() override { ShowMainWindow(); }
  WPaper2Window& Window() { return app.WPaper2; }
};

TEST_F(MainWindow, A_window_dragged_too_small_snaps_back) {
  Window().UserResize(5000, 3000, WindowState::Normal);
  EXPECT_EQ(Window().Width, 9500.0F);
  EXPECT_EQ(Window().Height, 6400.0F);
}

TEST_F(MainWindow, At_the_smallest_size_the_controls_stand_as_the_rule_says) {
  Window().UserResize(9500, 6400, WindowState::Normal);
  EXPECT_EQ(Window().Picture1.Width, 5060.0F);
  EXPECT_EQ(Window().Picture1.Height, 3795.0F);
  EXPECT_EQ(Window().LstLeft.Height, 1192.5F);
  EXPECT_EQ(Window().lblDisplayList.Top, 840 + 1192.5F + 930);
  EXPECT_EQ(Window().LstRight.Top, Window().lblDisplayList.Top + 240);
  EXPECT_EQ(Window().LstRight.Height, 1192.5F);
  EXPECT_EQ(Window().cmdUp.Top, Window().LstRight.Top + 1192.5F);
  EXPECT_EQ(Window().cmdDown.Top, Window().cmdUp.Top);
  EXPECT_EQ(Window().cmdRightOne.Top, 840 + 1192.5F + 160);
  EXPECT_EQ(Window().cmdLeftAll.Top, Window().cmdRightOne.Top + 300);
  EXPECT_EQ(Window().lblCountLabel.Top, 840 + 1192.5F + 60);
  EXPECT_EQ(Window().lblCount.Top, Window().lblCountLabel.Top + 255);
  EXPECT_EQ(Window().lblItemUseLabel.Top, Window().lblCount.Top + 285);
  EXPECT_EQ(Window().CurrentPicture.Top, Window().lblItemUseLabel.Top + 260);
  EXPECT_EQ(Window().txtPrgTitle.Top, 4795.0F);
}

TEST_F(MainWindow, A_tall_window_leaves_room_below_and_only_the_title_follows_the_edge) {
  Window().UserResize(9500, 12000, WindowState::Normal);
  EXPECT_EQ(Window().Picture1.Height, 3795.0F);
  EXPECT_EQ(Window().txtPrgTitle.Top, 12000.0F - 1605);
}

TEST_F(MainWindow, Lefts_and_widths_of_the_left_column_never_change) {
  Window().UserResize(20000, 15000, WindowState::Normal);
  EXPECT_EQ(Window().LstRight.Left, 90.0F);
  EXPECT_EQ(Window().LstRight.Width, 3945.0F);
  EXPECT_EQ(Window().cmdLeftOne.Left, 1365.0F);
}

TEST_F(MainWindow, A_maximized_window_that_is_too_small_is_zoomed_again) {
  Window().UserResize(9000, 6000, WindowState::Maximized);
  EXPECT_EQ(Window().State, WindowState::Maximized);
  EXPECT_EQ(Window().Height, 6400.0F);
}

TEST_F(MainWindow, A_resize_brings_the_selected_picture_up_again) {
  FillDisplayList(1, 2000, 1000);
  Window().LstRight.SetListIndex(0);
  Window().UserResize(20000, 15000, WindowState::Normal);
  EXPECT_NEAR(Window().Image1.Width, Window().Picture1.ScaleWidth(), 0.5F);
  EXPECT_GT(Window().Image1.Width, 1000.0F);
}

TEST_F(MainWindow, A_resize_with_nothing_selected_forgets_the_path_and_leaves_the_preview) {
  FillSelectionList(1);
  Window().LstLeft.UserSelect(0);
  const Picture preview = Window().Image1.Picture;
  Window().UserResize(20000, 15000, WindowState::Normal);
  EXPECT_EQ(app.CurrentImagePath, "");
  EXPECT_EQ(Window().Image1.Picture, preview);
  EXPECT_EQ(Window().Image1.Width, Window().Picture1.ScaleWidth());
}

TEST_F(MainWindow, A_minimized_window_is_hidden_and_not_laid_out) {
  const float height = Window().Picture1.Height;
  Window().UserResize(20000, 15000, WindowState::Minimized);
  EXPECT_FALSE(Window().Visible());
  EXPECT_EQ(Window().Picture1.Height, height);
}

TEST_F(MainWindow, A_click_on_a_window_higher_than_the_screen_brings_it_down) {
  Window().UserResize(20000, platform.windows.ScreenHeight() + 100, WindowState::Normal);
  Window().OnClick();
  EXPECT_EQ(Window().Height, 6400.0F);
}

TEST_F(MainWindow, The_bars_are_hidden_and_shown_with_no_new_layout) {
  const float top = Window().Picture1.Top;
  Window().mnuEditToolBar.UserClick();
  EXPECT_FALSE(Window().Toolbar1.Visible);
  EXPECT_FALSE(Window().mnuEditToolBar.Checked);
  EXPECT_EQ(Window().Picture1.Top, top);
  Window().mnuEditToolBar.UserClick();
  EXPECT_TRUE(Window().Toolbar1.Visible);
  Window().mnuEditStatusBar.UserClick();
  EXPECT_FALSE(Window().StatusBar1.Visible);
}

TEST_F(MainWindow, The_toolbar_steps_and_zooms) {
  FillDisplayList(3);
  Window().LstRight.SetListIndex(0);
  Window().Toolbar1.UserPress(11);
  EXPECT_EQ(app.CurrentIndex, 2);
  Window().Toolbar1.UserPress(10);
  EXPECT_EQ(app.CurrentIndex, 1);
  Window().Toolbar1.UserPress(16);
  EXPECT_TRUE(Window().mnuEditZoomLevel(5).Checked);
  Window().Toolbar1.UserPress(15);
  EXPECT_TRUE(Window().mnuEditZoomLevel(4).Checked);
}

TEST_F(MainWindow, Toolbar_buttons_stand_under_their_keys) {
  const Toolbar& toolbar = Window().Toolbar1;
  EXPECT_EQ(toolbar.Count(), 19);
  EXPECT_EQ(toolbar.Find("Directory"), 1);
  EXPECT_EQ(toolbar.Find("About"), 19);
  EXPECT_EQ(toolbar.Button(17).ToolTipText, "Display Program Properties ");
  EXPECT_EQ(toolbar.Find("thumb"), 0);
}

TEST_F(MainWindow, Items_are_as_the_menu_table_says) {
  EXPECT_EQ(Window().mnuFileDirectory.ReadProperty("Shortcut"), "Ctrl+D");
  EXPECT_EQ(Window().mnuEditZoomLevel(6).Caption, std::string("150%"));
  EXPECT_TRUE(Window().mnuEditZoomLevel(4).Checked);
  EXPECT_FALSE(Window().mnuFileBatchConvertImages.Visible);
  EXPECT_FALSE(Window().mnusg.Visible);
  EXPECT_FALSE(Window().mPopUpSys.Visible);
  EXPECT_TRUE(Window().mnuSlideShowForwardOrder.Checked);
  EXPECT_EQ(Window().mnuSlideshowDesktopCentered.Caption, std::string("     + Desktop &Centered"));
  EXPECT_EQ(Window().Find("mnuEditZoomLevel(11)"), &Window().mnuEditZoomLevel(11));
}

TEST_F(MainWindow, Status_panels_have_their_keys) {
  const StatusBar& bar = Window().StatusBar1;
  EXPECT_EQ(bar.Count(), 7);
  EXPECT_EQ(bar.Panel(3).Key, "panel4");
  EXPECT_EQ(bar.Panel(5).Style, PanelStyle::Date);
  EXPECT_EQ(bar.Panel(6).Style, PanelStyle::Time);
  EXPECT_EQ(bar.Panel(1).Text, "Current Image:");
}

}  // namespace
}  // namespace lumidex
