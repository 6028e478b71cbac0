#include "lists/image_lists.h"
#include "forms/WPaper2.h"
#include "support/test_program.h"

namespace lumidex {
namespace {

class ImageLists : public TestProgram {
 protected:
  void SetUp() override { ShowMainWindow(); }
  ListBox& Left() { return app.WPaper2.LstLeft; }
  ListBox& Right() { return app.WPaper2.LstRight; }
  std::string Count() { return app.WPaper2.lblCount.Caption; }
  std::string Current() { return app.WPaper2.CurrentPicture.Caption; }
};

TEST_F(ImageLists, Add_one_without_a_selected_entry_does_nothing) {
  FillSelectionList(3);
  AddOneToDisplayList(app);
  EXPECT_EQ(Right().ListCount(), 0);
  EXPECT_EQ(Left().ListCount(), 3);
  EXPECT_EQ(Count(), "0");
}

TEST_F(ImageLists, Add_one_moves_the_entry_and_ends_on_the_first_entry) {
  FillDisplayList(9);
  FillSelectionList(3);
  Left().UserSelect(1);
  AddOneToDisplayList(app);
  EXPECT_EQ(Right().ListCount(), 10);
  EXPECT_EQ(DisplayText(9), "C:\\Found\\f1.bmp");
  EXPECT_EQ(Left().ListCount(), 2);
  EXPECT_EQ(Left().ListIndex(), -1);
  EXPECT_EQ(Count(), "10");
  EXPECT_EQ(app.CurrentIndex, 1);
  EXPECT_EQ(Right().ListIndex(), 0);
  EXPECT_EQ(PanelText(2), "P0.Bmp");
}

TEST_F(ImageLists, Add_all_takes_every_entry_in_order_and_empties_the_selection_list) {
  FillSelectionList(3);
  AddAllToDisplayList(app);
  EXPECT_EQ(Right().ListCount(), 3);
  EXPECT_EQ(DisplayText(2), "C:\\Found\\f2.bmp");
  EXPECT_EQ(Left().ListCount(), 0);
  EXPECT_EQ(Count(), "3");
  EXPECT_EQ(Current(), "1");
  EXPECT_TRUE(app.WPaper2.mnuPicture.Enabled);
}

TEST_F(ImageLists, The_same_path_can_stand_twice) {
  FillSelectionList(1);
  AddAllToDisplayList(app);
  Left().AddItem("C:\\Found\\f0.bmp");
  AddAllToDisplayList(app);
  EXPECT_EQ(DisplayText(0), DisplayText(1));
  EXPECT_EQ(Count(), "2");
}

TEST_F(ImageLists, Removing_an_entry_selects_the_one_before_it) {
  FillDisplayList(4);
  Right().SetListIndex(2);
  RemoveOneFromDisplayList(app);
  EXPECT_EQ(Right().ListCount(), 3);
  EXPECT_EQ(Right().ListIndex(), 1);
  EXPECT_EQ(app.CurrentIndex, 2);
  EXPECT_EQ(Count(), "3");
}

TEST_F(ImageLists, Removing_the_first_of_several_leaves_position_0_with_the_second_entry) {
  FillDisplayList(3);
  Right().SetListIndex(0);
  RemoveOneFromDisplayList(app);
  EXPECT_EQ(Right().ListIndex(), 0);
  EXPECT_EQ(DisplayText(0), "C:\\Pics\\p1.bmp");
  EXPECT_EQ(app.CurrentIndex, 1);
}

TEST_F(ImageLists, Removing_the_only_entry_behaves_as_zap) {
  FillDisplayList(1);
  Right().SetListIndex(0);
  RemoveOneFromDisplayList(app);
  EXPECT_EQ(Right().ListCount(), 0);
  EXPECT_EQ(Count(), "0");
  EXPECT_EQ(Current(), "");
  EXPECT_EQ(app.CurrentIndex, 0);
}

TEST_F(ImageLists, Removing_without_a_selection_does_nothing) {
  FillDisplayList(2);
  RemoveOneFromDisplayList(app);
  EXPECT_EQ(Right().ListCount(), 2);
}

TEST_F(ImageLists, Zap_stops_the_slide_show_and_empties_the_picture_area) {
  FillDisplayList(2);
  Right().SetListIndex(1);
  int stops = 0;
  app.WPaper2.mnuSlideShowRunSlideShow.OnClick = [&] { stops += app.SlideShowRestart ? 1 : 0; };
  app.CommandLineMode = true;
  app.ListFilePictureCount = 7;
  FillSelectionList(1);
  const std::string path = app.CurrentImagePath;
  ZapDisplayList(app);
  EXPECT_EQ(stops, 1);
  EXPECT_TRUE(app.WPaper2.Image1.Picture.Get().IsEmpty());
  EXPECT_TRUE(app.WPaper2.Image1.Visible);
  EXPECT_EQ(app.WPaper2.Image1.Left, 0.0F);
  EXPECT_EQ(app.WPaper2.Image1.Width, app.WPaper2.Picture1.ScaleWidth());
  EXPECT_EQ(app.WPaper2.Image1.Height, app.WPaper2.Picture1.ScaleHeight());
  EXPECT_EQ(PanelText(2), "");
  // These it leaves alone.
  EXPECT_EQ(Left().ListCount(), 1);
  EXPECT_EQ(app.CurrentImagePath, path);
  EXPECT_EQ(app.ListFilePictureCount, 7);
  EXPECT_TRUE(app.CommandLineMode);
}

TEST_F(ImageLists, Move_down_takes_the_selection_along) {
  FillDisplayList(3);
  Right().SetListIndex(0);
  MoveDisplayEntryDown(app);
  EXPECT_EQ(DisplayText(0), "C:\\Pics\\p1.bmp");
  EXPECT_EQ(DisplayText(1), "C:\\Pics\\p0.bmp");
  EXPECT_EQ(Right().ListIndex(), 1);
  EXPECT_EQ(app.CurrentIndex, 2);
  EXPECT_EQ(Count(), "3");
}

TEST_F(ImageLists, Move_up_takes_the_selection_along) {
  FillDisplayList(3);
  Right().SetListIndex(2);
  MoveDisplayEntryUp(app);
  EXPECT_EQ(DisplayText(1), "C:\\Pics\\p2.bmp");
  EXPECT_EQ(Right().ListIndex(), 1);
  EXPECT_EQ(app.CurrentIndex, 2);
}

TEST_F(ImageLists, Moves_at_the_ends_change_nothing_and_ask_for_no_extent) {
  FillDisplayList(2);
  Right().SetListIndex(0);
  platform.log.Clear();
  MoveDisplayEntryUp(app);
  Right().SetListIndex(1);
  platform.log.Clear();
  MoveDisplayEntryDown(app);
  EXPECT_TRUE(platform.log.Lines().empty());
  EXPECT_EQ(DisplayText(0), "C:\\Pics\\p0.bmp");
}

TEST_F(ImageLists, Next_and_previous_wrap_around) {
  FillDisplayList(3);
  Right().SetListIndex(2);
  NextImage(app);
  EXPECT_EQ(app.CurrentIndex, 1);
  PreviousImage(app);
  EXPECT_EQ(app.CurrentIndex, 3);
  EXPECT_EQ(Right().ListIndex(), 2);
}

TEST_F(ImageLists, A_list_of_one_entry_selects_it_again) {
  FillDisplayList(1);
  Right().SetListIndex(0);
  NextImage(app);
  EXPECT_EQ(app.CurrentIndex, 1);
  EXPECT_EQ(Right().ListIndex(), 0);
}

TEST_F(ImageLists, A_missing_file_is_counted_and_named_and_the_old_picture_stays) {
  FillDisplayList(3);
  Right().SetListIndex(0);
  platform.files.Remove("C:\\Pics\\p1.bmp");
  NextImage(app);
  EXPECT_EQ(app.CurrentIndex, 2);
  EXPECT_EQ(PanelText(2), "P1.Bmp - Not Available");
  EXPECT_EQ(PanelText(3), "");
  EXPECT_EQ(app.CurrentImagePath, "C:\\Pics\\p0.bmp");
  EXPECT_FALSE(app.WPaper2.Image1.Picture.Get().IsEmpty());
  NextImage(app);
  EXPECT_EQ(PanelText(2), "P2.Bmp");
}

TEST_F(ImageLists, A_click_in_the_selection_list_shows_the_picture_and_leaves_the_position) {
  FillDisplayList(2);
  Right().SetListIndex(1);
  FillSelectionList(1);
  Left().UserSelect(0);
  EXPECT_EQ(app.CurrentImagePath, "C:\\Found\\f0.bmp");
  EXPECT_EQ(PanelText(2), "F0.Bmp");
  EXPECT_EQ(PanelText(3), "20 X 10 X 24");
  EXPECT_EQ(Current(), "2");
  EXPECT_EQ(app.CurrentIndex, 2);
}

TEST_F(ImageLists, Enter_in_the_display_list_brings_the_entry_up_and_other_keys_do_nothing) {
  FillDisplayList(2);
  Right().SetListIndex(1);
  FillSelectionList(1);
  Left().UserSelect(0);
  Right().UserKey(65);
  EXPECT_EQ(app.CurrentImagePath, "C:\\Found\\f0.bmp");
  Right().UserKey(13);
  EXPECT_EQ(app.CurrentImagePath, "C:\\Pics\\p1.bmp");
}

TEST_F(ImageLists, A_double_click_in_the_selection_list_adds_the_entry) {
  FillSelectionList(2);
  Left().UserSelect(1);
  Left().UserDoubleClick();
  EXPECT_EQ(DisplayText(0), "C:\\Found\\f1.bmp");
}

TEST_F(ImageLists, A_click_asks_the_list_for_room_for_its_text) {
  FillDisplayList(1);
  platform.log.Clear();
  Right().SetListIndex(0);
  ASSERT_FALSE(platform.log.Lines().empty());
  EXPECT_NE(platform.log.Lines()[0].find("1045"), std::string::npos) << platform.log.Lines()[0];
  EXPECT_EQ(app.WPaper2.ActiveControl(), &Right());
  EXPECT_EQ(app.WPaper2.Scale, ScaleMode::Twips);
}

TEST_F(ImageLists, A_list_that_can_not_get_the_keyboard_leaves_the_scale_mode_in_pixels) {
  Right().Visible = false;
  SetDisplayListExtent(app);
  EXPECT_EQ(app.WPaper2.Scale, ScaleMode::Pixels);
}

TEST_F(ImageLists, Add_all_beyond_the_capacity_keeps_what_fits_and_still_runs_the_enable_rule) {
  for (int i = 0; i < ListBox::Capacity - 1; ++i) Right().AddItem("C:\\none.bmp");
  app.WPaper2.lblCount.Caption = "32766";
  FillSelectionList(3);
  AddAllToDisplayList(app);
  EXPECT_EQ(Right().ListCount(), 32767);
  EXPECT_EQ(Count(), "32767");
  EXPECT_EQ(Left().ListCount(), 3);
  EXPECT_TRUE(app.WPaper2.mnuPicture.Enabled);
}

}  // namespace
}  // namespace lumidex
