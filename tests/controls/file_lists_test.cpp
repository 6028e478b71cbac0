#include "controls/sample_form.h"

namespace lumidex {
namespace {

using testing::ElementsAre;

struct FileLists : Controls {
  MemoryFileSystem& files = platform.files;
  void SetUp() override {
    files.AddFile("/pics/B.bmp", "x");
    files.AddFile("/pics/a.bmp", "x");
    files.AddFile("/pics/c.txt", "x");
    files.AddDirectory("/pics/deep");
    files.AddDirectory("/pics/Also");
    form.Dir1.OnChange = Tell("directory");
    form.Drive1.OnChange = Tell("drive");
  }
};

TEST_F(FileLists, Subdirectories_ascend_and_the_parents_stand_above) {
  form.Dir1.SetPath("/pics/");
  EXPECT_EQ(form.Dir1.Path(), "/pics");
  EXPECT_EQ(form.Dir1.ListCount(), 2);
  EXPECT_EQ(form.Dir1.List(0), "/pics/Also");
  EXPECT_EQ(form.Dir1.List(1), "/pics/deep");
  EXPECT_EQ(form.Dir1.List(2), "");
  EXPECT_EQ(form.Dir1.List(-1), "/pics");
  EXPECT_EQ(form.Dir1.List(-2), "/");
  EXPECT_EQ(form.Dir1.List(-3), "");
  EXPECT_EQ(form.Dir1.ListIndex(), -1);
}

TEST_F(FileLists, Setting_the_path_fires_change_for_another_directory_only) {
  form.Dir1.SetPath("/pics");
  form.Dir1.SetPath("/pics/");
  EXPECT_THAT(told, ElementsAre("directory"));
}

TEST_F(FileLists, A_directory_that_can_not_be_entered_changes_nothing) {
  form.Dir1.SetPath("/pics");
  files.SetLocked("/pics/deep", true);
  EXPECT_EQ(NumberRaisedBy([&] { form.Dir1.SetPath("/pics/deep"); }), 75);
  EXPECT_EQ(NumberRaisedBy([&] { form.Dir1.SetPath("/gone"); }), 76);
  EXPECT_EQ(form.Dir1.Path(), "/pics");
  EXPECT_THAT(told, ElementsAre("directory"));
}

TEST_F(FileLists, A_highlight_does_not_open_and_a_double_click_does) {
  form.Dir1.SetPath("/pics");
  form.Dir1.UserHighlight(1);
  EXPECT_EQ(form.Dir1.List(form.Dir1.ListIndex()), "/pics/deep");
  EXPECT_EQ(form.Dir1.Path(), "/pics");
  form.Dir1.UserOpen(1);
  EXPECT_EQ(form.Dir1.Path(), "/pics/deep");
  EXPECT_EQ(form.Dir1.ListIndex(), -1);
}

TEST_F(FileLists, Rows_outside_are_refused) {
  form.Dir1.SetPath("/pics");
  EXPECT_EQ(NumberRaisedBy([&] { form.Dir1.SetListIndex(2); }), 380);
  EXPECT_EQ(NumberRaisedBy([&] { form.Dir1.SetListIndex(-3); }), 380);
  form.Dir1.SetListIndex(-2);
}

TEST_F(FileLists, Files_match_any_of_the_patterns_without_regard_to_case_and_ascend) {
  form.File1.Pattern = "*.BMP;*.jpg";
  form.File1.SetPath("/pics");
  ASSERT_EQ(form.File1.ListCount(), 2);
  EXPECT_EQ(form.File1.List(0), "a.bmp");
  EXPECT_EQ(form.File1.List(1), "B.bmp");
  EXPECT_EQ(form.File1.List(2), "");
}

TEST_F(FileLists, An_empty_pattern_matches_nothing) {
  form.File1.SetPath("/pics");
  form.File1.Pattern = "";
  EXPECT_EQ(form.File1.ListCount(), 0);
}

TEST_F(FileLists, Selecting_a_file_tells_its_name) {
  form.File1.SetPath("/pics");
  form.File1.OnClick = Tell("file");
  form.File1.UserSelect(1);
  EXPECT_EQ(form.File1.FileName(), "B.bmp");
  form.File1.SetListIndex(1);
  EXPECT_THAT(told, ElementsAre("file"));
  EXPECT_EQ(NumberRaisedBy([&] { form.File1.SetListIndex(3); }), 380);
}

TEST_F(FileLists, A_directory_is_read_once_for_both_lists_and_all_their_properties) {
  form.Dir1.SetPath("/pics");
  form.File1.SetPath("/pics");
  for (int i = 0; i < form.File1.ListCount(); ++i) form.File1.List(i);
  for (int i = 0; i < form.Dir1.ListCount(); ++i) form.Dir1.List(i);
  EXPECT_EQ(files.ReadsOf("/pics"), 1);
}

TEST_F(FileLists, A_refresh_takes_in_what_has_changed_on_the_disk) {
  form.Dir1.SetPath("/pics");
  form.File1.Pattern = "*.bmp";
  form.File1.SetPath("/pics");
  EXPECT_EQ(form.File1.ListCount(), 2);
  files.AddFile("/pics/d.bmp", "x");
  files.AddDirectory("/pics/new");
  form.Dir1.Refresh();
  form.File1.Refresh();
  EXPECT_EQ(form.Dir1.ListCount(), 3);
  EXPECT_EQ(form.File1.ListCount(), 3);
  EXPECT_EQ(files.ReadsOf("/pics"), 2);
  form.Dir1.Refresh();
  form.File1.Refresh();
  EXPECT_EQ(files.ReadsOf("/pics"), 2);
}

TEST_F(FileLists, A_directory_that_has_gone_holds_no_files) {
  form.File1.SetPath("/pics");
  ASSERT_EQ(form.File1.ListCount(), 3);
  files.RemoveTree("/pics");
  form.File1.Pattern = "*.bmp";
  EXPECT_EQ(form.File1.ListCount(), 0);
  files.AddFile("/pics/d.bmp", "x");
  form.File1.Refresh();
  EXPECT_EQ(form.File1.ListCount(), 1);
}

TEST_F(FileLists, Opening_a_row_that_can_not_be_entered_stays) {
  form.Dir1.SetPath("/pics");
  files.SetLocked("/pics/deep", true);
  form.Dir1.UserOpen(1);
  EXPECT_EQ(form.Dir1.Path(), "/pics");
  EXPECT_EQ(form.Dir1.ListIndex(), -1);
  EXPECT_THAT(told, ElementsAre("directory"));
}

TEST_F(FileLists, Links_to_directories_are_told_apart) {
  files.AddLink("/pics/link", "/");
  form.Dir1.SetPath("/pics");
  EXPECT_FALSE(form.Dir1.IsLink(1));
  EXPECT_TRUE(form.Dir1.IsLink(2));
}

TEST_F(FileLists, The_drive_list_keeps_the_drive_of_a_path_and_fires_for_another_one) {
  files.AddDrive("/media/stick");
  form.Drive1.SetDrive("/pics");
  EXPECT_EQ(form.Drive1.Drive(), "/");
  form.Drive1.SetDrive("/");
  form.Drive1.SetDrive("/media/stick/deep");
  EXPECT_EQ(form.Drive1.Drive(), "/media/stick");
  EXPECT_THAT(told, ElementsAre("drive", "drive"));
}

TEST(DriveListWithLetters, A_drive_that_does_not_exist_is_not_available) {
  HeadlessPlatform platform('\\');
  DirectoryReader reader(platform.files);
  SampleForm form(platform.ports, reader);
  form.Drive1.SetDrive("C:\\x");
  EXPECT_EQ(NumberRaisedBy([&] { form.Drive1.SetDrive("Q:"); }), 68);
  EXPECT_EQ(form.Drive1.Drive(), "C:");
}

}  // namespace
}  // namespace lumidex
