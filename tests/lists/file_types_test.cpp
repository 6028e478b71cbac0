
#include "base/run_time_error.h"
#include "forms/WPaper2.h"
#include "forms/frmPreferences.h"
#include "imaging/status_bar.h"
#include "lists/file_pattern.h"
#include "support/test_program.h"

namespace lumidex {
namespace {

class FileTypes : public TestProgram {
 protected:
  void Untick() {
    for (auto& box : app.frmPreferences.chkFileType) box->Value = 0;
  }
};

TEST_F(FileTypes, All_types_are_ticked_at_first) {
  const std::string pattern = BuildFilePattern(app);
  EXPECT_TRUE(pattern.starts_with("*.ART;*.BMP;*.CUR;")) << pattern;
  EXPECT_TRUE(pattern.ends_with(";*.WPG;*.jpe")) << pattern;
  EXPECT_EQ(app.FilePattern, pattern);
}

TEST_F(FileTypes, Selecting_only_row_13_adds_jpe) {
  Untick();
  app.frmPreferences.chkFileType(13).Value = 1;
  EXPECT_EQ(BuildFilePattern(app), "*.JPG;*.jpe");
}

TEST_F(FileTypes, Rows_are_joined_by_semicolons) {
  Untick();
  app.frmPreferences.chkFileType(2).Value = 1;
  app.frmPreferences.chkFileType(8).Value = 1;
  EXPECT_EQ(BuildFilePattern(app), "*.BMP;*.GIF");
}

TEST_F(FileTypes, With_no_row_selected_the_pattern_is_empty) {
  Untick();
  EXPECT_EQ(BuildFilePattern(app), "");
}

TEST_F(FileTypes, The_texts_are_kept_as_they_stand) {
  EXPECT_EQ(app.frmPreferences.chkFileType(15).Caption, std::string("(.MAC) - Maintosh Paint"));
  EXPECT_EQ(app.frmPreferences.chkFileType(3).Caption, std::string("(.CUR) Windows Cursor File Format"));
  EXPECT_EQ(app.frmPreferences.chkFileType(5).Caption,
            std::string("(.DIB) - Microsoft Windows Device Independent Bitmaps "));
}

TEST_F(FileTypes, Both_cases_of_an_extension_show_the_same_picture) {
  ShowFileTypeIcon(app, ".BMP");
  EXPECT_EQ(app.WPaper2.StatusBar1.Panel(2).PictureKey, "BMP");
  ShowFileTypeIcon(app, ".png");
  EXPECT_EQ(app.WPaper2.StatusBar1.Panel(2).PictureKey, "PNG");
}

TEST_F(FileTypes, Jpeg_with_four_letters_and_jpe_match_nothing_and_leave_the_picture) {
  ShowFileTypeIcon(app, ".bmp");
  EXPECT_THROW(ShowFileTypeIcon(app, "jpeg"), RunTimeError);
  EXPECT_THROW(ShowFileTypeIcon(app, ".jpe"), RunTimeError);
  EXPECT_THROW(ShowFileTypeIcon(app, ""), RunTimeError);
  EXPECT_EQ(app.WPaper2.StatusBar1.Panel(2).PictureKey, "BMP");
}

TEST_F(FileTypes, The_empty_text_does_not_reach_the_type_picture) {
  UpdateStatusBar(app, "", false);
  EXPECT_EQ(PanelText(2), "");
  EXPECT_EQ(PanelText(3), "");
}

TEST_F(FileTypes, The_status_text_is_in_proper_case) {
  EXPECT_THROW(UpdateStatusBar(app, "a file - not available", false), RunTimeError);
  EXPECT_EQ(PanelText(2), "A File - Not Available");
}

}  // namespace
}  // namespace lumidex
