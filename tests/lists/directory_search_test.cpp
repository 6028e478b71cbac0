
#include <algorithm>

#include "base/text.h"
#include "forms/SelectPictureDirectoryForm.h"
#include "forms/WPaper2.h"
#include "forms/frmPreferences.h"
#include "forms/frmlocatefiles.h"
#include "lists/directory_search.h"
#include "support/test_program.h"

namespace lumidex {
namespace {

class DirectorySearch : public TestProgram {
 protected:
  void SetUp() override {
    ShowMainWindow();
    platform.files.AddDirectory("C:\\Root");
    platform.files.SetCurrentDirectory("C:\\Root");
    app.SelectPictureDirectoryForm.Load();
  }
  void AddPictures(std::initializer_list<const char*> paths) {
    for (const char* path : paths) platform.files.AddFile(path, "x");
    Dir1().Refresh();
  }
  std::vector<std::string> Found() {
    std::vector<std::string> found;
    for (int i = 0; i < app.WPaper2.LstLeft.ListCount(); ++i) found.push_back(app.WPaper2.LstLeft.List(i));
    return found;
  }
  // Runs the whole command; the user ticks or not and presses Ok or Cancel in the dialog.
  void Search(bool subFolders, bool accept = true) {
    platform.events.NextUserAction = [=, this] {
      auto& dialog = app.SelectPictureDirectoryForm;
      dialog.chkSearchSubs.Value = subFolders ? 1 : 0;
      (accept ? dialog.cmdOK : dialog.cmdCancel).UserClick();
      return true;
    };
    StartDirectorySearch(app);
  }
  DirList& Dir1() { return app.SelectPictureDirectoryForm.Dir1; }
};

TEST_F(DirectorySearch, One_directory_is_searched_alone) {
  AddPictures({"C:\\Root\\b.jpg", "C:\\Root\\A.BMP", "C:\\Root\\note.txt", "C:\\Root\\sub\\c.png"});
  Search(false);
  EXPECT_EQ(Found(), (std::vector<std::string>{"C:\\Root\\A.BMP", "C:\\Root\\b.jpg"}));
}

TEST_F(DirectorySearch, The_tree_is_walked_and_the_list_is_sorted) {
  AddPictures({"C:\\Root\\z.jpg", "C:\\Root\\x\\1.gif", "C:\\Root\\y\\2.tif", "C:\\Root\\y\\deep\\3.pcx"});
  Search(true);
  EXPECT_EQ(Found(), (std::vector<std::string>{"C:\\Root\\x\\1.gif", "C:\\Root\\y\\2.tif",
                                               "C:\\Root\\y\\deep\\3.pcx", "C:\\Root\\z.jpg"}));
  EXPECT_EQ(app.DirectoriesSearched, 4);
  EXPECT_EQ(Dir1().Path(), "C:\\Root");
}

TEST_F(DirectorySearch, Each_directory_is_read_once) {
  AddPictures({"C:\\Root\\a\\1.gif", "C:\\Root\\b\\2.gif", "C:\\Root\\c\\3.gif"});
  const int before = platform.files.ReadsOf("C:\\Root");
  Search(true);
  EXPECT_EQ(platform.files.ReadsOf("C:\\Root"), before);
  EXPECT_EQ(platform.files.ReadsOf("C:\\Root\\b"), 1);
}

TEST_F(DirectorySearch, Directories_add_their_files_after_their_subdirectories_from_the_last_to_the_first) {
  // Which entries get in before the list is full tells the order: only one place is left.
  AddPictures({"C:\\Root\\a\\1.gif", "C:\\Root\\b\\2.gif", "C:\\Root\\0.gif"});
  for (int i = 0; i < ListBox::Capacity - 2; ++i) app.WPaper2.LstLeft.AddItem("-");
  app.SearchDirectory = "C:\\Root\\";
  SearchSubFolders(app);
  const std::vector<std::string> found = Found();
  EXPECT_EQ(std::vector<std::string>(found.end() - 2, found.end()),
            (std::vector<std::string>{"C:\\Root\\a\\1.gif", "C:\\Root\\b\\2.gif"}));
  ASSERT_EQ(platform.dialogs.messages.size(), 1U);
  EXPECT_EQ(platform.dialogs.messages[0].text, "You've filled the listbox. Search being abandoned...");
  EXPECT_EQ(platform.dialogs.messages[0].title, "Lumidex");
}

TEST_F(DirectorySearch, At_the_32768th_entry_the_message_appears_and_32767_stay) {
  for (int i = 0; i < 40000; ++i) platform.files.AddFile("C:\\Root\\" + Number(i) + ".jpg", "");
  Search(true);
  EXPECT_EQ(app.WPaper2.LstLeft.ListCount(), 32767);
  ASSERT_EQ(platform.dialogs.messages.size(), 1U);
  EXPECT_EQ(platform.dialogs.messages[0].text, "You've filled the listbox. Search being abandoned...");
  EXPECT_EQ(app.WPaper2.StatusBar1.Panel(1).Text, "Current Image:");
}

TEST_F(DirectorySearch, One_directory_with_more_files_than_the_list_can_hold_says_so_and_keeps_32767) {
  for (int i = 0; i < 33000; ++i) platform.files.AddFile("C:\\Root\\" + Number(i) + ".jpg", "");
  Search(false);
  EXPECT_EQ(app.WPaper2.LstLeft.ListCount(), 32767);
  ASSERT_EQ(platform.dialogs.messages.size(), 1U);
  EXPECT_EQ(platform.dialogs.messages[0].text, "You've filled the listbox. Search being abandoned...");
  EXPECT_EQ(PanelText(1), "Current Image:");
  EXPECT_FALSE(app.frmlocatefiles.Visible());
}

TEST_F(DirectorySearch, One_directory_with_as_many_files_as_the_list_can_hold_says_nothing) {
  for (int i = 0; i < 32767; ++i) platform.files.AddFile("C:\\Root\\" + Number(i) + ".jpg", "");
  Search(false);
  EXPECT_EQ(app.WPaper2.LstLeft.ListCount(), 32767);
  EXPECT_TRUE(platform.dialogs.messages.empty());
}

TEST_F(DirectorySearch, The_search_state_is_shown_while_it_runs_and_taken_back_after) {
  AddPictures({"C:\\Root\\a\\1.gif"});
  std::vector<std::string> texts;
  platform.events.OnYield = [&] {
    if (PanelText(1) == "Search Status:" && (texts.empty() || texts.back() != PanelText(2)))
      texts.push_back(PanelText(2));
  };
  Search(true);
  EXPECT_NE(std::ranges::find(texts, " Directories Searched: 2 ---  Files Found:0"), texts.end());
  EXPECT_EQ(PanelText(1), "Current Image:");
  EXPECT_EQ(app.WPaper2.Pointer, MousePointer::Default);
  EXPECT_FALSE(app.frmlocatefiles.Visible());
}

TEST_F(DirectorySearch, An_empty_tree_leaves_an_empty_list_and_counts_its_directories) {
  platform.files.AddDirectory("C:\\Root\\a\\b");
  Search(true);
  EXPECT_EQ(app.WPaper2.LstLeft.ListCount(), 0);
  EXPECT_EQ(app.DirectoriesSearched, 3);
}

TEST_F(DirectorySearch, A_cancelled_dialog_leaves_the_selection_list_empty) {
  FillSelectionList(3);
  app.CommandLineMode = true;
  Search(true, false);
  EXPECT_EQ(app.WPaper2.LstLeft.ListCount(), 0);
  EXPECT_EQ(app.SearchDirectory, "");
  EXPECT_TRUE(app.CommandLineMode);
}

TEST_F(DirectorySearch, A_search_ends_command_line_mode) {
  app.CommandLineMode = true;
  Search(true);
  EXPECT_FALSE(app.CommandLineMode);
}

TEST_F(DirectorySearch, With_no_type_ticked_the_tree_search_says_so) {
  AddPictures({"C:\\Root\\a.jpg"});
  for (auto& box : app.frmPreferences.chkFileType) box->Value = 0;
  Search(true);
  ASSERT_EQ(platform.dialogs.messages.size(), 1U);
  EXPECT_EQ(platform.dialogs.messages[0].text,
            "No file types have been selected. Please select the desired file types and try again.");
  EXPECT_EQ(platform.dialogs.messages[0].buttons, MessageButtons::Ok);
  EXPECT_EQ(app.WPaper2.LstLeft.ListCount(), 0);
}

TEST_F(DirectorySearch, With_no_type_ticked_the_search_of_one_directory_finds_nothing_and_says_nothing) {
  AddPictures({"C:\\Root\\a.jpg"});
  for (auto& box : app.frmPreferences.chkFileType) box->Value = 0;
  Search(false);
  EXPECT_TRUE(platform.dialogs.messages.empty());
  EXPECT_EQ(app.WPaper2.LstLeft.ListCount(), 0);
}

TEST_F(DirectorySearch, A_highlighted_row_is_only_moved_to) {
  AddPictures({"C:\\Root\\sub\\a.jpg"});
  Dir1().SetPath("C:\\Root");
  Dir1().SetListIndex(0);
  SearchSubFolders(app);
  EXPECT_EQ(Dir1().Path(), "C:\\Root\\sub");
  EXPECT_EQ(app.WPaper2.LstLeft.ListCount(), 0);
  Dir1().SetListIndex(-2);
  SearchOneDirectory(app);
  EXPECT_EQ(Dir1().Path(), "C:\\Root");
  EXPECT_EQ(app.WPaper2.LstLeft.ListCount(), 0);
}

TEST_F(DirectorySearch, A_drive_root_gives_entries_with_one_separator) {
  AddPictures({"C:\\a.jpg"});
  platform.files.SetCurrentDirectory("C:\\");
  Dir1().SetPath("C:\\");
  SearchOneDirectory(app);
  EXPECT_EQ(Found(), (std::vector<std::string>{"C:\\a.jpg"}));
}

TEST_F(DirectorySearch, A_directory_that_can_not_be_entered_is_skipped_with_all_below_it) {
  AddPictures({"C:\\Root\\a\\1.gif", "C:\\Root\\b\\2.gif", "C:\\Root\\c\\3.gif", "C:\\Root\\0.gif"});
  platform.files.SetLocked("C:\\Root\\b", true);
  Search(true);
  EXPECT_EQ(Found(),
            (std::vector<std::string>{"C:\\Root\\0.gif", "C:\\Root\\a\\1.gif", "C:\\Root\\c\\3.gif"}));
  EXPECT_TRUE(platform.dialogs.messages.empty());
}

TEST_F(DirectorySearch, A_directory_that_vanishes_in_mid_walk_is_skipped) {
  AddPictures({"C:\\Root\\a\\1.gif", "C:\\Root\\b\\in\\2.gif", "C:\\Root\\c\\3.gif"});
  platform.events.OnYield = [&] {
    if (Dir1().Path() == "C:\\Root\\b\\in") platform.files.RemoveTree("C:\\Root\\b");
  };
  Search(true);
  EXPECT_EQ(Found(), (std::vector<std::string>{"C:\\Root\\a\\1.gif", "C:\\Root\\c\\3.gif"}));
}

TEST_F(DirectorySearch, A_link_cycle_ends) {
  AddPictures({"C:\\Root\\a\\1.gif"});
  platform.files.AddLink("C:\\Root\\a\\up", "C:\\Root");
  platform.files.AddLink("C:\\Root\\self", "C:\\Root\\self");
  Search(true);
  EXPECT_EQ(Found(), (std::vector<std::string>{"C:\\Root\\a\\1.gif"}));
}

TEST_F(DirectorySearch, Hidden_files_are_not_listed) {
  AddPictures({"C:\\Root\\a.jpg", "C:\\Root\\h.jpg"});
  platform.files.SetHidden("C:\\Root\\h.jpg", true);
  Search(false);
  EXPECT_EQ(Found(), (std::vector<std::string>{"C:\\Root\\a.jpg"}));
}

TEST_F(DirectorySearch, Names_of_any_kind_survive) {
  AddPictures({"C:\\Root\\a,b c'\".jpg", "C:\\Root\\caf\xC3\xA9.jpg", "C:\\Root\\bad\xFF\xFE.jpg"});
  Search(false);
  EXPECT_EQ(app.WPaper2.LstLeft.ListCount(), 3);
  const std::vector<std::string> found = Found();
  EXPECT_NE(std::ranges::find(found, "C:\\Root\\bad\xFF\xFE.jpg"), found.end());
  EXPECT_NE(std::ranges::find(found, "C:\\Root\\a,b c'\".jpg"), found.end());
}

TEST_F(DirectorySearch, Cancel_on_entering_a_directory_stops_and_keeps_what_was_found) {
  AddPictures({"C:\\Root\\a\\1.gif", "C:\\Root\\b\\2.gif", "C:\\Root\\0.gif"});
  platform.events.OnYield = [&] {
    if (app.DirectoriesSearched == 3 && app.SearchRunning) app.frmlocatefiles.CancelButton.UserClick();
  };
  Search(true);
  EXPECT_FALSE(app.SearchRunning);
  EXPECT_FALSE(app.frmlocatefiles.Visible());
  // The parent of the directory just entered returns at once and adds nothing of its own.
  EXPECT_EQ(Found(), (std::vector<std::string>{"C:\\Root\\b\\2.gif"}));
  EXPECT_EQ(Dir1().Path(), "C:\\Root\\a") << "the way back is not gone";
}

TEST_F(DirectorySearch, Cancel_between_two_subdirectories_leaves_each_level_its_own_files) {
  AddPictures({"C:\\Root\\a\\1.gif", "C:\\Root\\b\\2.gif", "C:\\Root\\0.gif"});
  platform.events.OnYield = [&] {
    if (app.DirectoriesSearched == 2 && Dir1().Path() == "C:\\Root")
      app.frmlocatefiles.CancelButton.UserClick();
  };
  Search(true);
  EXPECT_EQ(Found(), (std::vector<std::string>{"C:\\Root\\0.gif", "C:\\Root\\b\\2.gif"}));
}

TEST_F(DirectorySearch, The_next_search_finds_the_dialog_as_it_was_left) {
  platform.files.AddDirectory("C:\\Root\\sub");
  Dir1().SetPath("C:\\Root\\sub");
  Search(true);
  EXPECT_EQ(Dir1().Path(), "C:\\Root\\sub");
  EXPECT_EQ(app.SelectPictureDirectoryForm.chkSearchSubs.Value, 1);
}

TEST_F(DirectorySearch, A_second_search_does_not_load_the_search_window_again) {
  Search(true);
  platform.log.Clear();
  Search(true);
  for (const std::string& line : platform.log.Lines())
    EXPECT_EQ(line.find("SetWindowPos"), std::string::npos) << line;
}

}  // namespace
}  // namespace lumidex
