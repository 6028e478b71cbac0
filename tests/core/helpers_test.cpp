
#include "base/run_time_error.h"
#include "core/paths.h"
#include "core/topmost.h"
#include "core/zoom_factor.h"
#include "forms/WPaper2.h"
#include "forms/frmTip.h"
#include "support/test_program.h"
#include "windows/start_and_exit.h"

namespace lumidex {
namespace {

using Helpers = TestProgram;

TEST_F(Helpers, The_program_folder_ends_in_a_separator) {
  platform.process.executableFolder = "C:\\Lumidex";
  EXPECT_EQ(GetAppPath(app), "C:\\Lumidex\\");
  platform.process.executableFolder = "C:\\";
  EXPECT_EQ(GetAppPath(app), "C:\\");
}

TEST_F(Helpers, A_file_exists_when_a_lookup_yields_a_visible_name) {
  platform.files.AddFile("C:\\Pics\\a.bmp", "x");
  platform.files.AddFile("C:\\Pics\\secret.bmp", "x");
  platform.files.SetHidden("C:\\Pics\\secret.bmp", true);
  EXPECT_TRUE(FileExists(app, "C:\\Pics\\a.bmp"));
  EXPECT_FALSE(FileExists(app, "C:\\Pics\\b.bmp"));
  EXPECT_FALSE(FileExists(app, "C:\\Pics\\secret.bmp"));
  EXPECT_FALSE(FileExists(app, "C:\\Pics"));
  EXPECT_FALSE(FileExists(app, "Z:\\a.bmp"));
  EXPECT_FALSE(FileExists(app, ""));
}

TEST_F(Helpers, A_name_with_wildcards_exists_when_it_matches_anything) {
  platform.files.AddFile("C:\\Pics\\a.bmp", "x");
  EXPECT_TRUE(FileExists(app, "C:\\Pics\\*.BMP"));
  EXPECT_FALSE(FileExists(app, "C:\\Pics\\*.jpg"));
  EXPECT_FALSE(FileExists(app, "C:\\None\\*.bmp"));
}

TEST_F(Helpers, A_path_comes_apart_into_drive_directory_and_file) {
  std::string drive = "d", directory = "D", file = "f";
  SplitPath(app, "C:\\Pics\\Sea\\a.bmp", drive, directory, file);
  EXPECT_EQ(drive, "C:");
  EXPECT_EQ(directory, "\\Pics\\Sea\\");
  EXPECT_EQ(file, "a.bmp");
}

TEST_F(Helpers, Splitting_an_empty_path_leaves_the_outputs_alone) {
  std::string drive = "d", directory = "D", file = "f";
  SplitPath(app, "", drive, directory, file);
  EXPECT_EQ(drive + directory + file, "dDf");
}

TEST_F(Helpers, Splitting_a_path_with_no_separator_gives_no_directory_and_leaves_the_file_alone) {
  std::string drive, directory = "D", file = "f";
  SplitPath(app, "photo.bmp", drive, directory, file);
  EXPECT_EQ(drive, "ph");
  EXPECT_EQ(directory, "");
  EXPECT_EQ(file, "f");
}

TEST(HelpersWithSlashes, A_path_without_drives_begins_with_its_directory) {
  HeadlessPlatform platform('/');
  App app(platform.ports);
  std::string drive = "d", directory, file;
  SplitPath(app, "/home/me/a.bmp", drive, directory, file);
  EXPECT_EQ(drive, "");
  EXPECT_EQ(directory, "/home/me/");
  EXPECT_EQ(file, "a.bmp");
}

TEST_F(Helpers, A_path_that_is_short_enough_stays) {
  EXPECT_EQ(ShortenPath(app, "C:\\Pics\\a.bmp", 13), "C:\\Pics\\a.bmp");
}

TEST_F(Helpers, A_long_path_keeps_its_first_three_characters_and_its_last_directories) {
  // 30 characters; the scan begins at 30 - (20 - 6) = 16 and finds the separator before "cc".
  const std::string path = "C:\\aaaaaaa\\bbbbbbbbbb\\cc\\d.bmp";
  ASSERT_EQ(path.size(), 30U);
  EXPECT_EQ(ShortenPath(app, path, 20), "C:\\...\\cc\\d.bmp");
}

TEST_F(Helpers, A_long_path_with_no_separator_in_its_tail_ends_in_the_points) {
  EXPECT_EQ(ShortenPath(app, "C:\\a\\bbbbbbbbbbbbbbbbbbbbbbbb.bmp", 12), "C:\\...");
  EXPECT_EQ(ShortenPath(app, "C:\\a\\bbbbbbbbbb", 3), "C:\\...");
}

TEST_F(Helpers, The_zoom_factor_is_that_of_the_first_checked_item) {
  EXPECT_EQ(GetZoomFactor(app), 1.0F);
  app.WPaper2.mnuEditZoomLevel(2).Checked = true;
  EXPECT_EQ(GetZoomFactor(app), 0.5F);
  for (int level = 1; level <= 11; ++level) app.WPaper2.mnuEditZoomLevel(level).Checked = false;
  EXPECT_EQ(GetZoomFactor(app), 0.0F);
  app.WPaper2.mnuEditZoomLevel(11).Checked = true;
  EXPECT_EQ(GetZoomFactor(app), 5.0F);
  EXPECT_EQ(ZoomFactorOf(8), 2.0F);
  EXPECT_EQ(ZoomFactorOf(9), 3.0F);
  EXPECT_EQ(ZoomFactorOf(12), 0.0F);
}

TEST_F(Helpers, A_topmost_window_keeps_its_place_and_size) {
  MakeWindowTopmost(app, app.frmTip.hwnd());
  EXPECT_EQ(app.TopmostFlags, 3);
  ASSERT_EQ(platform.log.Lines().size(), 1U);
  EXPECT_NE(platform.log.Lines()[0].find("SetWindowPos"), std::string::npos);
}

TEST_F(Helpers, A_second_instance_ends_silently) {
  platform.process.hasPreviousInstance = true;
  EXPECT_THROW(CheckPrevInstance(app), ProgramEnded);
  EXPECT_TRUE(platform.dialogs.messages.empty());
}

}  // namespace
}  // namespace lumidex
