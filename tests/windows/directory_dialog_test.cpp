#include "forms/SelectPictureDirectoryForm.h"
#include "forms/checkjpg.h"
#include "forms/frmPreferences.h"
#include "support/test_program.h"

namespace lumidex {
namespace {

class DirectoryDialog : public TestProgram {
 protected:
  void SetUp() override {
    ShowMainWindow();
    platform.files.AddFile("C:\\Pics\\a.bmp", BitmapFile(300, 100));
    platform.files.AddFile("C:\\Pics\\bad.bmp", "x");
    platform.files.AddDirectory("C:\\Pics\\sub");
    platform.files.SetCurrentDirectory("C:\\Pics");
    Dialog().Show();
  }
  SelectPictureDirectoryFormWindow& Dialog() { return app.SelectPictureDirectoryForm; }
  std::string Info(int index) { return Dialog().lblFileInfo(index).Caption; }
};

TEST_F(DirectoryDialog, It_opens_on_the_current_directory_with_its_pictures) {
  EXPECT_EQ(Dialog().Dir1.Path(), "C:\\Pics");
  EXPECT_EQ(Dialog().Drive1.Drive(), "C:");
  EXPECT_EQ(Dialog().File1.ListCount(), 2);
  EXPECT_EQ(Dialog().chkSearchSubs.Value, 0);
}

TEST_F(DirectoryDialog, Ok_adds_the_separator_and_a_root_keeps_its_own) {
  Dialog().cmdOK.UserClick();
  EXPECT_EQ(app.SearchDirectory, "C:\\Pics\\");
  EXPECT_FALSE(Dialog().Visible());
  Dialog().Show();
  Dialog().Dir1.SetPath("C:\\");
  Dialog().cmdOK.UserClick();
  EXPECT_EQ(app.SearchDirectory, "C:\\");
}

TEST_F(DirectoryDialog, Cancel_and_the_frame_empty_the_result_and_keep_the_form) {
  Dialog().cmdCancel.UserClick();
  EXPECT_EQ(app.SearchDirectory, "");
  Dialog().Show();
  Dialog().Dir1.SetPath("C:\\Pics\\sub");
  Dialog().UserClose();
  EXPECT_EQ(app.SearchDirectory, "");
  EXPECT_FALSE(Dialog().Visible());
  EXPECT_TRUE(Dialog().IsLoaded());
  EXPECT_EQ(Dialog().Dir1.Path(), "C:\\Pics\\sub");
}

TEST_F(DirectoryDialog, A_space_opens_the_highlighted_directory) {
  Dialog().Dir1.UserHighlight(0);
  Dialog().Dir1.UserKey(65);
  EXPECT_EQ(Dialog().Dir1.Path(), "C:\\Pics");
  Dialog().Dir1.UserKey(32);
  EXPECT_EQ(Dialog().Dir1.Path(), "C:\\Pics\\sub");
}

TEST_F(DirectoryDialog, Leaving_the_list_moves_to_the_highlighted_row) {
  Dialog().Dir1.UserHighlight(0);
  Dialog().cmdOK.UserClick();
  EXPECT_EQ(app.SearchDirectory, "C:\\Pics\\sub\\");
}

TEST_F(DirectoryDialog, A_drive_that_is_not_ready_goes_back_without_a_message) {
  platform.files.AddDrive("D:", false);
  Dialog().Drive1.UserSelect("D:");
  EXPECT_EQ(Dialog().Drive1.Drive(), "C:");
  EXPECT_EQ(Dialog().Dir1.Path(), "C:\\Pics");
  EXPECT_TRUE(platform.dialogs.messages.empty());
}

TEST_F(DirectoryDialog, A_drive_that_is_ready_is_gone_to) {
  platform.files.AddDrive("E:");
  Dialog().Drive1.UserSelect("E:");
  EXPECT_EQ(Dialog().Dir1.Path(), "E:\\");
}

TEST_F(DirectoryDialog, A_clicked_file_is_previewed_with_its_facts) {
  Dialog().File1.UserSelect(0);
  EXPECT_EQ(Dialog().imgThumbNail.Picture.Get().GetSize(), (Size{150, 50}));
  EXPECT_EQ(Info(1), "90,054");
  EXPECT_EQ(Info(2), "300");
  EXPECT_EQ(Info(3), "100");
  EXPECT_EQ(Info(4), "16.7 Million (24-bit)");
  EXPECT_EQ(app.checkjpg.Picture1.ThumbnailSize, 0);
}

TEST_F(DirectoryDialog, A_file_that_can_not_be_decoded_ends_the_preview_quietly) {
  Dialog().File1.UserSelect(0);
  Dialog().File1.UserSelect(1);
  EXPECT_EQ(Info(2), "300");
  EXPECT_TRUE(platform.dialogs.messages.empty());
}

TEST_F(DirectoryDialog, A_file_that_is_gone_leaves_labels_and_preview) {
  Dialog().File1.UserSelect(0);
  platform.files.Remove("C:\\Pics\\bad.bmp");
  Dialog().File1.UserSelect(1);
  EXPECT_EQ(Info(1), "90,054");
  EXPECT_FALSE(Dialog().imgThumbNail.Picture.Get().IsEmpty());
}

TEST_F(DirectoryDialog, Changing_directory_clears_preview_and_values) {
  Dialog().File1.UserSelect(0);
  Dialog().Dir1.SetPath("C:\\Pics\\sub");
  EXPECT_TRUE(Dialog().imgThumbNail.Picture.Get().IsEmpty());
  for (int i = 1; i <= 4; ++i) EXPECT_EQ(Info(i), "") << i;
  EXPECT_EQ(Dialog().File1.Path(), "C:\\Pics\\sub");
  EXPECT_EQ(app.SearchDirectory, "C:\\Pics\\sub");
}

TEST_F(DirectoryDialog, The_folder_buttons_go_to_the_special_folders) {
  Dialog().cmdFolder(0).UserClick();
  EXPECT_EQ(Dialog().Dir1.Path(), platform.folders.Desktop());
  Dialog().cmdFolder(1).UserClick();
  EXPECT_EQ(Dialog().Dir1.Path(), platform.folders.Documents());
  Dialog().cmdFolder(2).UserClick();
  EXPECT_EQ(Dialog().Dir1.Path(), platform.folders.Favorites());
  EXPECT_EQ(Dialog().Drive1.Drive(), "C:");
}

TEST_F(DirectoryDialog, A_change_of_the_file_types_takes_effect_on_activation) {
  app.frmPreferences.chkFileType(2).Value = 0;
  Dialog().UserActivate();
  EXPECT_EQ(Dialog().File1.ListCount(), 0);
}

TEST_F(DirectoryDialog, The_file_type_button_opens_the_first_page_and_takes_the_new_pattern) {
  app.frmPreferences.SSTab1.Tab = 3;
  platform.events.NextUserAction = [&] {
    EXPECT_EQ(app.frmPreferences.SSTab1.Tab, 0);
    EXPECT_TRUE(app.frmPreferences.IsModal());
    app.frmPreferences.chkFileType(2).UserClick();
    app.frmPreferences.cmdOK.UserClick();
    return true;
  };
  Dialog().cmdSelectFileTypes.UserClick();
  EXPECT_EQ(Dialog().File1.ListCount(), 0);
}

}  // namespace
}  // namespace lumidex
