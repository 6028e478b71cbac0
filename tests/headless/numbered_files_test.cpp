// Files that are open under a number, on the file system in memory.

#include <gmock/gmock.h>

#include "number_raised.h"
#include "pictures/picture_data.h"
#include "platform/headless/memory_file_system.h"

namespace lumidex {
namespace {

struct NumberedFiles : testing::Test {
  CallLog log;
  MemoryFileSystem files{'\\', log, [] { return 1000; }};
  int Raised(const std::function<void()>& step) { return NumberRaisedBy(step); }
};

TEST_F(NumberedFiles, Appending_goes_on_behind_what_the_file_holds) {
  files.AddFile("C:\\report", "old\r\n");
  files.OpenForAppend(1, "C:\\report");
  files.Print(1, "one\r\n");
  files.Print(1, "two\r\n");
  EXPECT_EQ(files.ReadAll("C:\\report"), "old\r\none\r\ntwo\r\n");
}

TEST_F(NumberedFiles, Output_empties_the_file_first) {
  files.AddFile("C:\\report", "old");
  files.OpenForOutput(1, "C:\\report");
  EXPECT_EQ(files.ReadAll("C:\\report"), "");
  files.Print(1, "new");
  EXPECT_EQ(files.ReadAll("C:\\report"), "new");
}

TEST_F(NumberedFiles, Both_make_a_file_that_is_missing) {
  files.OpenForAppend(1, "C:\\a");
  files.OpenForOutput(2, "C:\\b");
  EXPECT_TRUE(files.Look("C:\\a"));
  EXPECT_TRUE(files.Look("C:\\b"));
}

TEST_F(NumberedFiles, A_number_in_use_is_refused_and_stays_what_it_was) {
  files.OpenForAppend(1, "C:\\a");
  EXPECT_EQ(Raised([&] { files.OpenForOutput(1, "C:\\b"); }), 55);
  EXPECT_FALSE(files.Look("C:\\b"));
  files.Print(1, "text");
  EXPECT_EQ(files.ReadAll("C:\\a"), "text");
}

TEST_F(NumberedFiles, A_file_is_open_under_one_number_only) {
  files.OpenForAppend(1, "C:\\a");
  files.Print(1, "text");
  EXPECT_EQ(Raised([&] { files.OpenForOutput(2, "C:\\.\\a"); }), 55);
  EXPECT_EQ(files.ReadAll("C:\\a"), "text");
}

TEST_F(NumberedFiles, A_closed_number_takes_nothing_and_is_free_again) {
  files.OpenForAppend(1, "C:\\a");
  files.Close(1);
  EXPECT_EQ(Raised([&] { files.Print(1, "text"); }), 52);
  files.Close(1);
  files.OpenForAppend(1, "C:\\a");
  files.Print(1, "text");
  EXPECT_EQ(files.ReadAll("C:\\a"), "text");
}

TEST_F(NumberedFiles, What_can_not_be_opened_leaves_the_number_free) {
  files.AddFile("C:\\protected", "");
  files.SetReadOnly("C:\\protected", true);
  files.AddFile("C:\\locked", "");
  files.SetLocked("C:\\locked", true);
  files.AddDirectory("C:\\folder");
  files.SetReadOnly("C:\\folder", true);
  EXPECT_EQ(Raised([&] { files.OpenForAppend(1, "C:\\protected"); }), 75);
  EXPECT_EQ(Raised([&] { files.OpenForOutput(1, "C:\\folder\\new"); }), 75);
  EXPECT_EQ(Raised([&] { files.OpenForOutput(1, "C:\\folder"); }), 75);
  EXPECT_EQ(Raised([&] { files.OpenForOutput(1, "C:\\locked"); }), 70);
  EXPECT_EQ(Raised([&] { files.OpenForOutput(1, "C:\\none\\a"); }), 76);
  files.OpenForAppend(1, "C:\\a");
}

TEST_F(NumberedFiles, A_full_disk_takes_what_fits_whole_or_not_at_all) {
  files.OpenForOutput(1, "C:\\a");
  files.SetFreeBytes(5);
  files.Print(1, "1234");
  EXPECT_EQ(Raised([&] { files.Print(1, "56"); }), 61);
  EXPECT_EQ(files.ReadAll("C:\\a"), "1234");
}

TEST_F(NumberedFiles, Who_reads_meanwhile_keeps_what_stood_there) {
  files.OpenForOutput(1, "C:\\a");
  files.Print(1, "one");
  const auto reader = files.Open("C:\\a");
  files.Print(1, "two");
  EXPECT_EQ(reader->Size(), 3);
  EXPECT_EQ(files.ReadAll("C:\\a"), "onetwo");
}

TEST_F(NumberedFiles, A_file_that_is_removed_meanwhile_does_not_come_back) {
  files.OpenForOutput(1, "C:\\a");
  files.RemoveTree("C:\\a");
  files.Print(1, "text");
  EXPECT_FALSE(files.Look("C:\\a"));
}

}  // namespace
}  // namespace lumidex
