#include "core/list_files.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "core/test_program.h"

namespace lumidex {
namespace {

class ListFiles : public TestProgram {
 protected:
  void SetUp() override {
    ShowMainWindow();
    app.AppPath = "C:\\Lumidex\\";
  }
  void PutStandardList(const std::string& text) { platform.files.AddFile("C:\\Lumidex\\Lumidex.Lst", text); }
};

TEST_F(ListFiles, The_format_is_title_count_index_quoted_entries_and_end) {
  FillDisplayList(2);
  app.CurrentIndex = 2;
  EXPECT_EQ(ListFileText(app),
            "[File List]\r\nNo. Of Pictures=2\r\nCurrent Index=2\r\n"
            "\"0 =| C:\\Pics\\p0.bmp\"\r\n\"1 =| C:\\Pics\\p1.bmp\"\r\n*** End of List ***\r\n");
}

TEST_F(ListFiles, An_empty_list_never_replaces_the_standard_list) {
  PutStandardList("kept");
  SaveStandardList(app);
  EXPECT_EQ(platform.files.ReadAll("C:\\Lumidex\\Lumidex.Lst"), "kept");
}

TEST_F(ListFiles, Every_path_comes_back_as_it_was) {
  const std::vector<std::string> paths = {"C:\\a b,c.bmp", "/x\"y.png",          "/two\nlines\r.png",
                                          "/bar|bar.png",  "/bytes\xFF\xC3.png", "/*** End of List.gif",
                                          " blank "};
  for (const std::string& path : paths) app.WPaper2.LstRight.AddItem(path);
  SaveStandardList(app);
  app.WPaper2.LstRight.Clear();
  LoadStandardList(app);
  ASSERT_EQ(app.WPaper2.LstRight.ListCount(), static_cast<int>(paths.size()));
  for (std::size_t i = 0; i < paths.size(); ++i) EXPECT_EQ(DisplayText(static_cast<int>(i)), paths[i]);
}

TEST_F(ListFiles, The_standard_load_appends_and_counts_on) {
  FillDisplayList(1);
  PutStandardList("[File List]\r\nNo. Of Pictures=1\r\nCurrent Index=0\r\n\"0 =| C:\\n.bmp\"\r\n");
  LoadStandardList(app);
  EXPECT_EQ(app.WPaper2.LstRight.ListCount(), 2);
  EXPECT_EQ(app.WPaper2.lblCount.Caption.Get(), "2");
  EXPECT_EQ(app.CurrentIndex, 1);
}

TEST_F(ListFiles, A_negative_current_index_becomes_none_and_then_the_first) {
  PutStandardList("[File List]\r\nNo. Of Pictures=1\r\nCurrent Index=-4\r\n\"0 =| C:\\n.bmp\"\r\n");
  LoadStandardList(app);
  EXPECT_EQ(app.WPaper2.CurrentPicture.Caption.Get(), "0");
  EXPECT_EQ(app.CurrentIndex, 1);
}

TEST_F(ListFiles, Without_its_key_the_second_item_counts_nothing_and_the_third_is_still_read) {
  app.ListFilePictureCount = 1;
  PutStandardList("[File List]\r\nsomething\r\nCurrent Index=1\r\n\"0 =| C:\\n.bmp\"\r\n");
  LoadStandardList(app);
  // The count of the load before stands.
  EXPECT_EQ(app.WPaper2.LstRight.ListCount(), 1);
}

TEST_F(ListFiles, The_32768th_entry_is_out_of_memory) {
  std::string text = "[File List]\r\nNo. Of Pictures=32768\r\nCurrent Index=1\r\n";
  for (int i = 0; i < 32768; ++i) text += "\"" + Number(i) + " =| C:\\p" + Number(i) + ".bmp\"\r\n";
  PutStandardList(text);
  try {
    LoadStandardList(app);
    FAIL() << "nothing was raised";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::OutOfMemory);
  }
  EXPECT_EQ(app.WPaper2.LstRight.ListCount(), 32767);
}

TEST_F(ListFiles, An_entry_that_ends_at_its_bar_is_an_error) {
  PutStandardList("[File List]\r\nNo. Of Pictures=1\r\nCurrent Index=1\r\n\"0 =|\"\r\n");
  EXPECT_THROW(LoadStandardList(app), RunTimeError);
}

TEST_F(ListFiles, The_closing_steps_keep_away_from_a_load_without_pictures) {
  FillDisplayList(2);
  app.CommandLineMode = true;
  app.ListFilePictureCount = 0;
  FinishListLoad(app);
  EXPECT_FALSE(app.CommandLineMode);
  EXPECT_EQ(app.WPaper2.LstRight.ListIndex(), -1);
}

}  // namespace
}  // namespace lumidex
