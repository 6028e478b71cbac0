#include "platform/headless/memory_file_system.h"
#include "pictures/picture_data.h"

#include <gmock/gmock.h>

#include "number_raised.h"

namespace lumidex {
namespace {

struct Files : testing::Test {
  CallLog log;
  std::int64_t now = 1000;
  MemoryFileSystem drives{'\\', log, [this] { return now; }};
  MemoryFileSystem slashes{'/', log, [this] { return now; }};
};

std::vector<std::string> NamesIn(const MemoryFileSystem& files, const std::string& path) {
  std::vector<std::string> names;
  for (const auto& entry : files.ReadDirectory(path)) names.push_back(entry.name);
  return names;
}

using testing::ElementsAre;
using testing::UnorderedElementsAre;

TEST_F(Files, Drive_paths_are_brought_into_one_form) {
  drives.AddDirectory("C:\\Pics\\Deep");
  EXPECT_EQ(drives.Normalised("c:\\Pics\\"), "C:\\Pics");
  EXPECT_EQ(drives.Normalised("C:\\\\a.jpg"), "C:\\a.jpg");
  EXPECT_EQ(drives.Normalised("C:\\Pics\\.\\Deep\\..\\x"), "C:\\Pics\\x");
  EXPECT_EQ(drives.Normalised("C:\\.."), "C:\\");
  EXPECT_EQ(drives.Normalised("D:"), "D:\\");
  drives.SetCurrentDirectory("C:\\Pics");
  EXPECT_EQ(drives.Normalised("a.bmp"), "C:\\Pics\\a.bmp");
  EXPECT_EQ(drives.Normalised("\\a.bmp"), "C:\\a.bmp");
}

TEST_F(Files, Slash_paths_are_brought_into_one_form) {
  EXPECT_EQ(slashes.Normalised("/a//b/../c/"), "/a/c");
  EXPECT_EQ(slashes.Normalised("/"), "/");
  slashes.SetCurrentDirectory("/home/ada");
  EXPECT_EQ(slashes.Normalised("x"), "/home/ada/x");
}

TEST_F(Files, Names_on_drives_may_differ_in_case) {
  drives.AddFile("C:\\Pics\\A.BMP", "x");
  EXPECT_TRUE(drives.Look("c:\\pics\\a.bmp"));
  slashes.AddFile("/pics/A.BMP", "x");
  EXPECT_FALSE(slashes.Look("/pics/a.bmp"));
}

TEST_F(Files, A_name_of_invalid_bytes_survives) {
  const std::string path = "/pics/caf\xE9.bmp";
  slashes.AddFile(path, "content");
  EXPECT_THAT(NamesIn(slashes, "/pics"), ElementsAre("caf\xE9.bmp"));
  EXPECT_EQ(slashes.ReadAll(path), "content");
}

TEST_F(Files, Reading_a_directory_that_is_missing_or_closed_raises_its_number) {
  drives.AddFile("C:\\file", "");
  drives.AddDirectory("C:\\closed");
  drives.SetLocked("C:\\closed", true);
  EXPECT_EQ(NumberRaisedBy([&] { drives.ReadDirectory("C:\\gone"); }), 76);
  EXPECT_EQ(NumberRaisedBy([&] { drives.ReadDirectory("C:\\file"); }), 76);
  EXPECT_EQ(NumberRaisedBy([&] { drives.ReadDirectory("C:\\closed"); }), 75);
  EXPECT_FALSE(drives.Look("C:\\closed\\inside"));
}

TEST_F(Files, A_drive_that_is_not_ready_is_offered_but_can_not_be_read) {
  drives.AddDrive("D:", false);
  EXPECT_THAT(drives.Drives(), ElementsAre("C:", "D:"));
  EXPECT_EQ(drives.DriveOf("d:\\x"), "D:");
  EXPECT_EQ(drives.DriveOf("E:\\x"), "");
  EXPECT_EQ(NumberRaisedBy([&] { drives.ReadDirectory("D:\\"); }), 68);
  EXPECT_EQ(drives.DirectoryStamp("D:\\"), 0U);
}

TEST_F(Files, A_mounted_place_is_a_drive_of_its_own) {
  slashes.AddDrive("/media/stick");
  EXPECT_THAT(slashes.Drives(), ElementsAre("/", "/media/stick"));
  EXPECT_EQ(slashes.DriveOf("/media/stick/a"), "/media/stick");
  EXPECT_EQ(slashes.DriveOf("/media/sticky"), "/");
}

TEST_F(Files, Links_to_directories_are_followed_and_told_apart) {
  slashes.AddFile("/pics/a.bmp", "a");
  slashes.AddLink("/pics/again", "/pics");
  slashes.AddLink("/pics/nowhere", "/gone");
  const auto entries = slashes.ReadDirectory("/pics/again");
  ASSERT_EQ(entries.size(), 3U);
  EXPECT_EQ(entries[0].kind, EntryKind::Other);
  EXPECT_EQ(entries[1].kind, EntryKind::DirectoryLink);
  EXPECT_EQ(slashes.ReadAll("/pics/again/again/a.bmp"), "a");
}

TEST_F(Files, A_link_that_leads_to_itself_is_no_directory) {
  slashes.AddLink("/loop", "/loop");
  EXPECT_EQ(NumberRaisedBy([&] { slashes.ReadDirectory("/loop"); }), 76);
}

TEST_F(Files, The_stamp_changes_with_the_content_of_the_directory) {
  drives.AddFile("C:\\Pics\\a", "");
  const auto first = drives.DirectoryStamp("C:\\Pics");
  EXPECT_EQ(drives.DirectoryStamp("C:\\Pics"), first);
  drives.AddFile("C:\\Pics\\b", "");
  const auto second = drives.DirectoryStamp("C:\\Pics");
  EXPECT_NE(second, first);
  drives.RemoveTree("C:\\Pics");
  EXPECT_EQ(drives.DirectoryStamp("C:\\Pics"), 0U);
  drives.AddFile("C:\\Pics\\a", "");
  EXPECT_NE(drives.DirectoryStamp("C:\\Pics"), second);
}

TEST_F(Files, Reads_are_counted_by_directory) {
  drives.AddDirectory("C:\\Pics");
  drives.ReadDirectory("C:\\Pics");
  drives.ReadDirectory("C:\\Pics\\");
  EXPECT_EQ(drives.ReadsOf("C:\\Pics"), 2);
  EXPECT_EQ(drives.ReadsOf("C:\\"), 0);
}

TEST_F(Files, A_full_disk_refuses_and_keeps_the_old_content) {
  drives.AddFile("C:\\a", "old!");
  drives.SetFreeBytes(3);
  EXPECT_EQ(NumberRaisedBy([&] { drives.WriteAll("C:\\a", "12345678"); }), 61);
  EXPECT_EQ(drives.ReadAll("C:\\a"), "old!");
  drives.WriteAll("C:\\a", "1234567");
  EXPECT_EQ(NumberRaisedBy([&] { drives.WriteAll("C:\\b", "1"); }), 61);
  drives.Remove("C:\\a");
  drives.WriteAll("C:\\b", "1234567");
}

TEST_F(Files, On_a_full_disk_a_file_written_over_is_empty_and_what_it_held_stands_beside_it) {
  drives.AddFile("C:\\a.lst", "old!");
  drives.SetFreeBytes(3);
  EXPECT_EQ(NumberRaisedBy([&] { drives.WriteOver("C:\\a.lst", "1234"); }), 61);
  EXPECT_EQ(drives.ReadAll("C:\\a.lst"), "");
  EXPECT_EQ(drives.ReadAll("C:\\a.Old.lst"), "old!");
  drives.WriteOver("C:\\a.lst", "123");
  EXPECT_EQ(drives.ReadAll("C:\\a.lst"), "123");
}

TEST_F(Files, Writing_over_a_file_leaves_nothing_of_the_old_behind) {
  drives.AddFile("C:\\a", "old!");
  drives.SetFreeBytes(3);
  drives.WriteOver("C:\\a", "new");
  EXPECT_EQ(drives.ReadAll("C:\\a"), "new");
  EXPECT_FALSE(drives.Look("C:\\a.Old"));
  drives.WriteOver("C:\\a", "four");
  EXPECT_EQ(drives.ReadAll("C:\\a"), "four");
}

TEST_F(Files, A_file_that_can_not_step_aside_is_not_opened) {
  drives.AddFile("C:\\Pics\\a", "old");
  drives.SetReadOnly("C:\\Pics", true);
  EXPECT_EQ(NumberRaisedBy([&] { drives.WriteOver("C:\\Pics\\a", "new"); }), 75);
  EXPECT_EQ(drives.ReadAll("C:\\Pics\\a"), "old");
}

TEST_F(Files, A_free_path_is_the_first_number_that_is_not_taken) {
  EXPECT_EQ(drives.FreePath("C:\\Recovered.LST"), "C:\\Recovered.LST");
  drives.AddFile("C:\\Recovered.LST", "");
  EXPECT_EQ(drives.FreePath("C:\\Recovered.LST"), "C:\\Recovered2.LST");
  drives.AddFile("C:\\Recovered2.LST", "");
  EXPECT_EQ(drives.FreePath("C:\\Recovered.LST"), "C:\\Recovered3.LST");
  drives.AddFile("C:\\a.dir\\plain", "");
  EXPECT_EQ(drives.FreePath("C:\\a.dir\\plain"), "C:\\a.dir\\plain2");
  EXPECT_EQ(drives.AsidePath("C:\\a.dir\\x.cfg"), "C:\\a.dir\\x.Old.cfg");
}

TEST_F(Files, A_writer_that_fails_half_way_keeps_the_old_content) {
  drives.WriteAll("C:\\a", "old");
  EXPECT_EQ(NumberRaisedBy([&] {
              drives.Write("C:\\a", [](ByteSink& sink) {
                sink.WriteText("half");
                throw RunTimeError(ErrorNumber::OutOfMemory);
              });
            }),
            7);
  EXPECT_EQ(drives.ReadAll("C:\\a"), "old");
}

TEST_F(Files, What_is_read_only_can_not_be_changed) {
  drives.AddFile("C:\\ro\\a", "x");
  drives.SetReadOnly("C:\\ro", true);
  EXPECT_EQ(NumberRaisedBy([&] { drives.WriteAll("C:\\ro\\b", ""); }), 75);
  EXPECT_EQ(NumberRaisedBy([&] { drives.Remove("C:\\ro\\a"); }), 70);
  drives.AddFile("C:\\b", "x");
  drives.SetReadOnly("C:\\b", true);
  EXPECT_EQ(NumberRaisedBy([&] { drives.WriteAll("C:\\b", ""); }), 70);
  EXPECT_EQ(NumberRaisedBy([&] { drives.WriteAll("C:\\none\\b", ""); }), 76);
}

TEST_F(Files, A_file_stays_readable_when_it_is_removed_while_open) {
  drives.AddFile("C:\\a", "content");
  const auto source = drives.Open("C:\\a");
  drives.Remove("C:\\a");
  std::array<std::uint8_t, 7> bytes{};
  EXPECT_EQ(source->ReadAt(0, bytes), 7U);
  EXPECT_EQ(NumberRaisedBy([&] { drives.Open("C:\\a"); }), 53);
}

TEST_F(Files, Hidden_files_are_told_apart) {
  drives.AddFile("C:\\a", "");
  drives.SetHidden("C:\\a", true);
  EXPECT_TRUE(drives.Look("C:\\a")->hidden);
  drives.AddFile("C:\\.b", "");
  EXPECT_FALSE(drives.Look("C:\\.b")->hidden);
  slashes.AddFile("/.b", "");
  EXPECT_TRUE(slashes.Look("/.b")->hidden);
}

TEST_F(Files, Written_files_carry_the_time) {
  now = 777;
  drives.WriteAll("C:\\a", "");
  EXPECT_EQ(drives.Look("C:\\a")->modified, 777);
}

TEST_F(Files, Something_that_is_no_file_does_not_open) {
  slashes.AddOther("/pipe");
  slashes.AddDirectory("/dir");
  EXPECT_EQ(NumberRaisedBy([&] { slashes.Open("/pipe"); }), 75);
  EXPECT_EQ(NumberRaisedBy([&] { slashes.Open("/dir"); }), 75);
  slashes.AddFile("/locked", "");
  slashes.SetLocked("/locked", true);
  EXPECT_EQ(NumberRaisedBy([&] { slashes.Open("/locked"); }), 70);
}

TEST_F(Files, Errors_name_the_file_or_folder_that_they_are_about) {
  const std::string missing = "C:\\none\\x";
  EXPECT_EQ(PathRaisedBy([&] { drives.Open(missing); }), missing);
  EXPECT_EQ(PathRaisedBy([&] { drives.ChDir(missing); }), missing);
  EXPECT_EQ(PathRaisedBy([&] { drives.ReadDirectory(missing); }), missing);
  EXPECT_EQ(PathRaisedBy([&] { drives.WriteAll(missing, ""); }), missing);
  EXPECT_EQ(PathRaisedBy([&] { drives.WriteOver(missing, ""); }), missing);
  EXPECT_EQ(PathRaisedBy([&] { drives.Remove(missing); }), missing);
  EXPECT_EQ(PathRaisedBy([&] { drives.MakeDirectory(missing); }), missing);
  EXPECT_EQ(PathRaisedBy([&] { drives.OpenForAppend(1, missing); }), missing);
  drives.OpenForOutput(1, "C:\\a");
  EXPECT_EQ(PathRaisedBy([&] { drives.OpenForOutput(2, "C:\\a"); }), "C:\\a");
  drives.SetFreeBytes(0);
  EXPECT_EQ(PathRaisedBy([&] { drives.Print(1, "x"); }), "C:\\a");
  EXPECT_EQ(PathRaisedBy([&] { drives.WriteAll("C:\\b", "x"); }), "C:\\b");
}

TEST_F(Files, The_current_directory_changes_only_to_one_that_can_be_entered) {
  drives.AddDirectory("C:\\Pics");
  drives.AddDirectory("C:\\locked");
  drives.SetLocked("C:\\locked", true);
  drives.ChDir("C:\\Pics");
  EXPECT_EQ(drives.Normalised("a"), "C:\\Pics\\a");
  EXPECT_EQ(NumberRaisedBy([&] { drives.ChDir("C:\\none"); }), 76);
  EXPECT_EQ(NumberRaisedBy([&] { drives.ChDir("C:\\locked"); }), 75);
  EXPECT_EQ(drives.CurrentDirectory(), "C:\\Pics");
}

}  // namespace
}  // namespace lumidex
