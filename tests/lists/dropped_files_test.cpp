#include "lists/dropped_files.h"

#include "core/enable_state.h"
#include "forms/SelectPictureDirectoryForm.h"
#include "forms/frmlocatefiles.h"
#include "support/test_program.h"

namespace lumidex {
namespace {

struct DroppedFiles : TestProgram {
  DroppedFiles() {
    ShowMainWindow();
    for (const char* name : {"C:\\a.bmp", "C:\\b.bmp", "C:\\Pics\\c.bmp", "C:\\Pics\\Sub\\d.bmp"}) {
      platform.files.AddFile(name, BitmapFile(40, 30));
    }
    platform.files.AddFile("C:\\Pics\\notes.txt", "no picture");
  }
  void Drop(const std::vector<std::string>& paths) { app.WPaper2.UserDrop(paths); }
  std::string Selection() {
    std::string all;
    for (int row = 0; row < app.WPaper2.LstLeft.ListCount(); ++row)
      all += app.WPaper2.LstLeft.List(row) + " ";
    return all;
  }
};

TEST_F(DroppedFiles, Files_go_to_the_end_of_the_display_list_and_the_first_of_them_comes_up) {
  FillDisplayList(2);
  Drop({"C:\\b.bmp", "C:\\a.bmp"});
  EXPECT_EQ(app.WPaper2.LstRight.ListCount(), 4);
  EXPECT_EQ(DisplayText(2), "C:\\b.bmp");
  EXPECT_EQ(DisplayText(3), "C:\\a.bmp");
  EXPECT_EQ(app.WPaper2.lblCount.Caption.Get(), "4");
  EXPECT_EQ(app.WPaper2.LstRight.ListIndex(), 2);
  EXPECT_EQ(PanelText(2), "B.Bmp");
}

TEST_F(DroppedFiles, The_first_drop_opens_the_commands) {
  UpdateEnableState(app);
  EXPECT_FALSE(app.WPaper2.mnuPicture.Enabled);
  Drop({"C:\\a.bmp"});
  EXPECT_TRUE(app.WPaper2.mnuPicture.Enabled);
  EXPECT_EQ(PanelText(2), "A.Bmp");
}

TEST_F(DroppedFiles, What_is_not_there_is_passed_over) {
  Drop({"C:\\gone.bmp"});
  EXPECT_EQ(app.WPaper2.LstRight.ListCount(), 0);
  EXPECT_EQ(app.WPaper2.lblCount.Caption.Get(), "0");
}

TEST_F(DroppedFiles, A_folder_is_searched_with_its_sub_folders_into_the_selection_list) {
  FillSelectionList(3);
  Drop({"C:\\Pics"});
  EXPECT_EQ(Selection(), "C:\\Pics\\c.bmp C:\\Pics\\Sub\\d.bmp ");
  EXPECT_EQ(app.WPaper2.LstRight.ListCount(), 0);
  EXPECT_EQ(app.WPaper2.StatusBar1.Panel(1).Text, "Current Image:");
  EXPECT_FALSE(app.frmlocatefiles.Visible());
  EXPECT_TRUE(app.WPaper2.cmdRightAll.Enabled);
}

TEST_F(DroppedFiles, The_directory_dialog_is_where_it_was) {
  app.SelectPictureDirectoryForm.Load();
  const std::string before = app.SelectPictureDirectoryForm.Dir1.Path();
  Drop({"C:\\Pics\\Sub", "C:\\Pics"});
  EXPECT_EQ(app.SelectPictureDirectoryForm.Dir1.Path(), before);
  EXPECT_EQ(Selection(), "C:\\Pics\\c.bmp C:\\Pics\\Sub\\d.bmp C:\\Pics\\Sub\\d.bmp ");
}

TEST_F(DroppedFiles, Files_and_folders_dropped_together_each_go_their_way) {
  Drop({"C:\\Pics\\Sub", "C:\\a.bmp"});
  EXPECT_EQ(DisplayText(0), "C:\\a.bmp");
  EXPECT_EQ(Selection(), "C:\\Pics\\Sub\\d.bmp ");
}

TEST_F(DroppedFiles, A_search_that_is_cancelled_leaves_out_the_folders_that_follow) {
  platform.events.OnYield = [&] {
    if (app.frmlocatefiles.Visible()) app.frmlocatefiles.CancelButton.UserClick();
  };
  Drop({"C:\\Pics\\Sub", "C:\\Pics"});
  EXPECT_EQ(Selection(), "");
  EXPECT_FALSE(app.frmlocatefiles.Visible());
}

TEST_F(DroppedFiles, A_full_display_list_takes_what_fits) {
  for (int i = 0; i < 32766; ++i) app.WPaper2.LstRight.AddItem("C:\\full.bmp");
  app.WPaper2.lblCount.Caption = "32766";
  Drop({"C:\\a.bmp", "C:\\b.bmp"});
  EXPECT_EQ(app.WPaper2.LstRight.ListCount(), 32767);
  EXPECT_EQ(app.WPaper2.lblCount.Caption.Get(), "32767");
  EXPECT_TRUE(platform.dialogs.messages.empty());
}

TEST_F(DroppedFiles, A_hidden_window_takes_nothing) {
  app.WPaper2.Hide();
  Drop({"C:\\a.bmp"});
  EXPECT_EQ(app.WPaper2.LstRight.ListCount(), 0);
}

}  // namespace
}  // namespace lumidex
