
#include "lists/list_files.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "core/list_text.h"
#include "forms/WPaper2.h"
#include "lists/image_lists.h"
#include "support/test_program.h"

namespace lumidex {
namespace {

class ListFiles : public TestProgram {
 protected:
  void SetUp() override {
    ShowMainWindow();
    app.AppPath = "C:\\Lumidex\\";
  }
  void PutStandardList(const std::string& text) { platform.files.AddFile("C:\\Lumidex\\Lumidex.Lst", text); }
  static std::string ListOf(int entries) {
    std::string text = "[File List]\r\nNo. Of Pictures=" + Number(entries) + "\r\nCurrent Index=1\r\n";
    for (int i = 0; i < entries; ++i) text += "\"" + Number(i) + " =| C:\\p" + Number(i) + ".bmp\"\r\n";
    return text + "*** End of List ***\r\n";
  }
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

TEST_F(ListFiles, A_load_yields_after_every_50th_entry_and_at_its_end) {
  for (const auto& [entries, yields] : {std::pair{1, 1}, {49, 1}, {50, 2}, {99, 2}, {100, 3}}) {
    PutStandardList(ListOf(entries));
    const int before = platform.events.Yields();
    LoadStandardList(app);
    EXPECT_EQ(platform.events.Yields() - before, yields) << entries;
  }
}

TEST_F(ListFiles, What_is_emptied_during_a_yield_fills_on_with_the_rest) {
  PutStandardList(ListOf(60));
  platform.events.OnYield = [&] {
    platform.events.OnYield = {};
    ZapDisplayList(app);
  };
  LoadStandardList(app);
  EXPECT_EQ(app.WPaper2.LstRight.ListCount(), 10);
  EXPECT_EQ(DisplayText(0), "C:\\p50.bmp");
  EXPECT_EQ(app.WPaper2.lblCount.Caption.Get(), "10");
  EXPECT_EQ(app.CurrentIndex, 1);
}

TEST_F(ListFiles, A_list_loaded_during_a_yield_does_not_cut_the_first_one_short) {
  PutStandardList(ListOf(60));
  platform.files.AddFile("C:\\two.lst", ListOf(2));
  platform.events.OnYield = [&] {
    platform.events.OnYield = {};
    LoadUserList(app, "C:\\two.lst");
  };
  LoadStandardList(app);
  EXPECT_EQ(app.WPaper2.LstRight.ListCount(), 12);
  EXPECT_EQ(DisplayText(11), "C:\\p59.bmp");
}

TEST_F(ListFiles, A_list_saved_during_a_yield_holds_what_has_come_and_the_load_goes_on) {
  PutStandardList(ListOf(60));
  platform.events.OnYield = [&] {
    platform.events.OnYield = {};
    platform.files.WriteAll("C:\\part.lst", ListFileText(app));
  };
  LoadStandardList(app);
  EXPECT_NE(platform.files.ReadAll("C:\\part.lst").find("No. Of Pictures=50"), std::string::npos);
  EXPECT_EQ(app.WPaper2.LstRight.ListCount(), 60);
}

TEST_F(ListFiles, The_32768th_entry_is_out_of_memory) {
  PutStandardList(ListOf(32768));
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
