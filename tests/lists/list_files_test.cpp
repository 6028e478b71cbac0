
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
  void LoadStandard() {
    ListLoad load(app);
    LoadStandardList(app, load);
    load.Stands();
  }
  void LoadUser(const std::string& path) {
    ListLoad load(app);
    LoadUserList(app, load, path);
    load.Stands();
  }
  // Runs it in the first yield that comes.
  void InYield(const std::function<void()>& act) {
    platform.events.OnYield = [this, act] {
      const auto once = act;
      platform.events.OnYield = {};
      once();
    };
  }
  // Runs it in the last yield of a load, when the list is whole.
  void InLastYield(int entries, const std::function<void()>& act) {
    platform.events.OnYield = [this, entries, act] {
      if (app.WPaper2.LstRight.ListCount() < entries || app.listLoading.isPart) return;
      const auto once = act;
      platform.events.OnYield = {};
      once();
    };
  }
  std::string StandardList() { return platform.files.ReadAll("C:\\Lumidex\\Lumidex.Lst"); }
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
  LoadStandard();
  ASSERT_EQ(app.WPaper2.LstRight.ListCount(), static_cast<int>(paths.size()));
  for (std::size_t i = 0; i < paths.size(); ++i) EXPECT_EQ(DisplayText(static_cast<int>(i)), paths[i]);
}

TEST_F(ListFiles, The_standard_load_appends_and_counts_on) {
  FillDisplayList(1);
  PutStandardList("[File List]\r\nNo. Of Pictures=1\r\nCurrent Index=0\r\n\"0 =| C:\\n.bmp\"\r\n");
  LoadStandard();
  EXPECT_EQ(app.WPaper2.LstRight.ListCount(), 2);
  EXPECT_EQ(app.WPaper2.lblCount.Caption.Get(), "2");
  EXPECT_EQ(app.CurrentIndex, 1);
}

TEST_F(ListFiles, A_negative_current_index_becomes_none_and_then_the_first) {
  PutStandardList("[File List]\r\nNo. Of Pictures=1\r\nCurrent Index=-4\r\n\"0 =| C:\\n.bmp\"\r\n");
  LoadStandard();
  EXPECT_EQ(app.WPaper2.CurrentPicture.Caption.Get(), "0");
  EXPECT_EQ(app.CurrentIndex, 1);
}

TEST_F(ListFiles, Without_its_key_the_second_item_counts_nothing_and_the_third_is_still_read) {
  app.ListFilePictureCount = 1;
  PutStandardList("[File List]\r\nsomething\r\nCurrent Index=1\r\n\"0 =| C:\\n.bmp\"\r\n");
  LoadStandard();
  // The count of the load before stands.
  EXPECT_EQ(app.WPaper2.LstRight.ListCount(), 1);
}

TEST_F(ListFiles, A_load_yields_after_every_50th_entry_and_at_its_end) {
  for (const auto& [entries, yields] : {std::pair{1, 1}, {49, 1}, {50, 2}, {99, 2}, {100, 3}}) {
    PutStandardList(ListOf(entries));
    const int before = platform.events.Yields();
    LoadStandard();
    EXPECT_EQ(platform.events.Yields() - before, yields) << entries;
  }
}

TEST_F(ListFiles, A_list_emptied_while_it_is_read_stays_empty) {
  PutStandardList(ListOf(60));
  InYield([&] { ZapDisplayList(app); });
  LoadStandard();
  EXPECT_EQ(app.WPaper2.LstRight.ListCount(), 0);
  EXPECT_EQ(app.WPaper2.lblCount.Caption.Get(), "0");
  EXPECT_EQ(app.CurrentIndex, 0);
}

TEST_F(ListFiles, A_second_load_replaces_the_first_whole) {
  PutStandardList(ListOf(60));
  platform.files.AddFile("C:\\two.lst", ListOf(2));
  InYield([&] { LoadUser("C:\\two.lst"); });
  LoadStandard();
  EXPECT_EQ(app.WPaper2.LstRight.ListCount(), 2);
  EXPECT_EQ(app.WPaper2.lblCount.Caption.Get(), "2");
  EXPECT_EQ(DisplayText(0), "C:\\p0.bmp");
}

TEST_F(ListFiles, A_second_load_in_the_yields_of_the_emptying_replaces_the_first_too) {
  platform.files.AddFile("C:\\sixty.lst", ListOf(60));
  platform.files.AddFile("C:\\two.lst", ListOf(2));
  InYield([&] { LoadUser("C:\\two.lst"); });
  LoadUser("C:\\sixty.lst");
  EXPECT_EQ(app.WPaper2.LstRight.ListCount(), 2);
}

TEST_F(ListFiles, A_list_that_is_being_read_is_not_written) {
  PutStandardList(ListOf(60));
  InYield([&] {
    EXPECT_EQ(app.WPaper2.LstRight.ListCount(), 50);
    SaveStandardList(app);
    SaveUserList(app, "C:\\part.lst");
  });
  LoadStandard();
  EXPECT_EQ(StandardList(), ListOf(60));
  EXPECT_FALSE(platform.files.Look("C:\\part.lst"));
  EXPECT_EQ(app.WPaper2.LstRight.ListCount(), 60);
  SaveUserList(app, "C:\\whole.lst");
  EXPECT_NE(platform.files.ReadAll("C:\\whole.lst").find("No. Of Pictures=60"), std::string::npos);
}

TEST_F(ListFiles, A_list_that_failed_to_load_may_be_written_again) {
  PutStandardList("[File List]\r\nNo. Of Pictures=5\r\nCurrent Index=1\r\n\"0 =| C:\\n.bmp\"\r\n");
  EXPECT_THROW(LoadStandard(), RunTimeError);
  SaveUserList(app, "C:\\rest.lst");
  EXPECT_TRUE(platform.files.Look("C:\\rest.lst"));
}

TEST_F(ListFiles, A_list_is_written_again_in_the_last_yield_of_its_load) {
  PutStandardList(ListOf(60));
  InLastYield(60, [&] { SaveUserList(app, "C:\\whole.lst"); });
  LoadStandard();
  EXPECT_TRUE(platform.files.Look("C:\\whole.lst"));
}

TEST_F(ListFiles, Nobody_steps_through_a_list_that_is_being_read) {
  PutStandardList("[File List]\r\nNo. Of Pictures=60\r\nCurrent Index=60\r\n" + ListOf(60).substr(50));
  for (const auto step : {&NextImage, &PreviousImage}) {
    app.WPaper2.LstRight.Clear();
    InYield([&] { step(app); });
    LoadStandard();
    EXPECT_EQ(app.CurrentIndex, 60);
  }
}

TEST_F(ListFiles, A_step_from_an_index_behind_the_last_entry_ends_on_an_entry) {
  FillDisplayList(3);
  app.CurrentIndex = 9;
  PreviousImage(app);
  EXPECT_EQ(app.CurrentIndex, 3);
  app.CurrentIndex = 9;
  NextImage(app);
  EXPECT_EQ(app.CurrentIndex, 1);
}

TEST_F(ListFiles, The_closing_steps_leave_a_list_alone_that_is_being_read) {
  PutStandardList(ListOf(60));
  InYield([&] {
    app.CommandLineMode = true;
    FinishListLoad(app);
    EXPECT_FALSE(app.CommandLineMode);
    EXPECT_EQ(app.WPaper2.LstRight.ListIndex(), -1);
  });
  LoadStandard();
  EXPECT_EQ(app.WPaper2.LstRight.ListCount(), 60);
}

TEST_F(ListFiles, The_closing_steps_end_with_a_list_that_is_emptied_while_its_picture_comes_up) {
  FillDisplayList(3);
  app.ListFilePictureCount = 3;
  InYield([&] { ZapDisplayList(app); });
  FinishListLoad(app);
  EXPECT_EQ(app.WPaper2.CurrentPicture.Caption.Get(), "");
  EXPECT_EQ(app.CurrentIndex, 0);
}

TEST_F(ListFiles, The_32768th_entry_is_out_of_memory) {
  PutStandardList(ListOf(32768));
  try {
    LoadStandard();
    FAIL() << "nothing was raised";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::OutOfMemory);
  }
  EXPECT_EQ(app.WPaper2.LstRight.ListCount(), 32767);
}

TEST_F(ListFiles, An_entry_that_ends_at_its_bar_is_an_error) {
  PutStandardList("[File List]\r\nNo. Of Pictures=1\r\nCurrent Index=1\r\n\"0 =|\"\r\n");
  EXPECT_THROW(LoadStandard(), RunTimeError);
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
