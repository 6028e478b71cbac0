
#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

#include "base/run_time_error.h"
#include "forms/WPaper2.h"
#include "forms/frmPreferences.h"
#include "preferences/settings_file.h"
#include "support/test_program.h"

namespace lumidex {
namespace {

std::string GoldenFile() {
  std::ifstream file("tests/preferences/golden/Lumidex.Cfg", std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

class SettingsFile : public TestProgram {
 protected:
  void SetUp() override {
    WireWindows(app);
    app.AppPath = "C:\\Lumidex\\";
    app.frmPreferences.Load();
  }
  void Read(const std::string& text) {
    platform.files.AddFile(path, text);
    ReadSettings(app);
  }
  std::string Written() {
    WriteSettings(app);
    return platform.files.ReadAll(path);
  }
  const std::string path = "C:\\Lumidex\\Lumidex.Cfg";
};

TEST_F(SettingsFile, All_57_lines_are_written_byte_for_byte) {
  frmPreferencesWindow& form = app.frmPreferences;
  form.chkStretch.Value = 1;
  for (const int type : {2, 19, 28}) form.chkFileType(type).Value = 0;
  for (const int entry : {0, 7, 18}) form.List1.SetSelected(entry, false);
  app.ViewMode = 1;
  app.ColorMNU = 6;
  form.chkCountFileSize.Value = 0;
  app.SlideShowInterval = 25;
  EXPECT_EQ(Written(), GoldenFile());
}

TEST_F(SettingsFile, What_was_read_is_written_again_but_for_types_1_and_2) {
  Read(GoldenFile());
  std::string expected = GoldenFile();
  // Type 1 follows type 19, and type 2 follows type 29.
  expected.replace(expected.find("IncludeFileType1=1"), 18, "IncludeFileType1=0");
  expected.replace(expected.find("IncludeFileType2=0"), 18, "IncludeFileType2=1");
  EXPECT_EQ(Written(), expected);
}

TEST_F(SettingsFile, The_design_has_all_types_all_buttons_and_all_counts) {
  const std::string text = Written();
  EXPECT_THAT(text, testing::StartsWith("[Lumidex.Cfg]\r\nPrvStretch=0\r\nIncludeFileType1=1\r\n"));
  EXPECT_THAT(text, testing::HasSubstr("IncludeToolBarButton18=True\r\nViewMode=0\r\n"));
  EXPECT_THAT(text, testing::EndsWith("MenuAltBackground=0\r\nColorMNU=0\r\nCountFileType=1\r\n"
                                      "CountFileSize=1\r\nCountFileColorDepth=1\r\nSlideShowInterval=0\r\n"));
  EXPECT_THAT(text, testing::Not(testing::HasSubstr("=False")));
}

TEST_F(SettingsFile, An_item_that_passes_several_tests_is_applied_to_all_of_them) {
  Read("CountFileSize and SlideShowInterval=1\r\n");
  EXPECT_EQ(app.frmPreferences.chkCountFileSize.Value, 1);
  EXPECT_EQ(app.SlideShowInterval, 1);
}

TEST_F(SettingsFile, A_key_counts_wherever_it_stands_and_only_in_its_own_case) {
  Read("old SlideShowInterval=8\r\ncolormnu=5\r\n");
  EXPECT_EQ(app.SlideShowInterval, 8);
  EXPECT_EQ(app.ColorMNU, 0);
}

TEST_F(SettingsFile, A_colour_index_above_7_paints_nothing_and_is_kept) {
  Read("ColorMNU=9\r\n");
  EXPECT_EQ(app.ColorMNU, 9);
  EXPECT_TRUE(app.WPaper2.Drawing().empty());
}

TEST_F(SettingsFile, The_alternate_background_yields_and_loads_the_kept_picture) {
  platform.files.AddFile("C:\\Lumidex\\MenuVBgd.Bmp", BitmapFile(7, 5));
  const int before = platform.events.Yields();
  Read("MenuAltBackground=1\r\n");
  EXPECT_EQ(platform.events.Yields() - before, 2);
  EXPECT_EQ(app.WPaper2.Picture.Get().GetSize(), (Size{7, 5}));
  EXPECT_TRUE(app.frmPreferences.cmdMenuSelect.Enabled);
}

TEST_F(SettingsFile, A_grey_alternate_background_is_not_on) {
  platform.files.AddFile("C:\\Lumidex\\MenuVBgd.Bmp", BitmapFile(7, 5));
  Read("MenuAltBackground=2\r\n");
  EXPECT_TRUE(app.WPaper2.Picture.Get().IsEmpty());
  EXPECT_FALSE(app.frmPreferences.cmdMenuSelect.Enabled);
}

TEST_F(SettingsFile, An_unwritable_folder_and_a_full_disk_are_errors) {
  platform.files.SetReadOnly("C:\\Lumidex", true);
  EXPECT_THROW(WriteSettings(app), RunTimeError);
  platform.files.SetReadOnly("C:\\Lumidex", false);
  platform.files.SetFreeBytes(10);
  EXPECT_THROW(WriteSettings(app), RunTimeError);
}

}  // namespace
}  // namespace lumidex
