#include "platform/posix/posix_file_system.h"
#include "pictures/picture_data.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <csignal>

#include "number_raised.h"
#include "platform/posix/mounts.h"
#include "posix/temporary_folder.h"

namespace {

// The folders that were brought to the disk, in their order.
std::vector<std::string> syncedFolders;

}  // namespace

// Stands before the system's own.
extern "C" int fsync(int descriptor) {
  struct stat status {};
  char path[4096];
  const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
  const ssize_t length = readlink(link.c_str(), path, sizeof path);
  const bool isFolder = fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
  if (isFolder && length > 0) syncedFolders.emplace_back(path, static_cast<std::size_t>(length));
  return static_cast<int>(syscall(SYS_fsync, descriptor));
}

namespace lumidex {
namespace {

// A limit on the length of files stands in for a disk that fills up half way.
class SmallFilesOnly {
 public:
  SmallFilesOnly() : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    rlimit small = before_;
    small.rlim_cur = 1000;
    setrlimit(RLIMIT_FSIZE, &small);
  }
  ~SmallFilesOnly() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  SmallFilesOnly(const SmallFilesOnly&) = delete;
  SmallFilesOnly& operator=(const SmallFilesOnly&) = delete;

 private:
  rlimit before_{};
  void (*handler_)(int);
};

struct PosixFiles : testing::Test {
  TemporaryFolder folder;
  PosixFileSystem files;

  const DirectoryEntry* Entry(const std::string& name) {
    entries = files.ReadDirectory(folder.Path());
    for (const auto& entry : entries) {
      if (entry.name == name) return &entry;
    }
    return nullptr;
  }
  std::vector<DirectoryEntry> entries;
};

TEST_F(PosixFiles, Paths_are_made_absolute_and_plain) {
  EXPECT_EQ(files.Normalised("/a//b/./c/../d/"), "/a/b/d");
  EXPECT_EQ(files.Normalised("/.."), "/");
  EXPECT_EQ(files.Normalised("x"), files.CurrentDirectory() + "/x");
}

TEST_F(PosixFiles, A_directory_tells_files_directories_links_and_others_apart) {
  Put(folder / "file", "x");
  mkdir((folder / "dir").c_str(), 0777);
  ASSERT_EQ(symlink("dir", (folder / "link").c_str()), 0);
  ASSERT_EQ(symlink("file", (folder / "filelink").c_str()), 0);
  ASSERT_EQ(symlink("gone", (folder / "dangling").c_str()), 0);
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(Entry("file")->kind, EntryKind::File);
  EXPECT_EQ(Entry("dir")->kind, EntryKind::Directory);
  EXPECT_EQ(Entry("link")->kind, EntryKind::DirectoryLink);
  EXPECT_EQ(Entry("filelink")->kind, EntryKind::File);
  EXPECT_EQ(Entry("dangling")->kind, EntryKind::Other);
  EXPECT_EQ(Entry("pipe")->kind, EntryKind::Other);
  EXPECT_EQ(entries.size(), 6U);
}

TEST_F(PosixFiles, A_link_to_the_directory_above_is_told_apart_so_a_walk_can_end) {
  mkdir((folder / "dir").c_str(), 0777);
  ASSERT_EQ(symlink("..", (folder / "dir/up").c_str()), 0);
  const auto inside = files.ReadDirectory(folder / "dir");
  ASSERT_EQ(inside.size(), 1U);
  EXPECT_EQ(inside[0].kind, EntryKind::DirectoryLink);
  EXPECT_EQ(files.Look(folder / "dir/up")->kind, EntryKind::DirectoryLink);
}

TEST_F(PosixFiles, A_link_to_itself_is_no_directory) {
  ASSERT_EQ(symlink("loop", (folder / "loop").c_str()), 0);
  EXPECT_EQ(Entry("loop")->kind, EntryKind::Other);
  EXPECT_FALSE(files.Look(folder / "loop"));
  EXPECT_EQ(NumberRaisedBy([&] { files.ReadDirectory(folder / "loop"); }), 76);
}

TEST_F(PosixFiles, Names_beginning_with_a_point_are_hidden) {
  Put(folder / ".hidden", "x");
  Put(folder / "seen", "x");
  EXPECT_TRUE(Entry(".hidden")->hidden);
  EXPECT_FALSE(Entry("seen")->hidden);
  EXPECT_TRUE(files.Look(folder / ".hidden")->hidden);
  EXPECT_FALSE(files.Look(folder / "seen")->hidden);
}

TEST_F(PosixFiles, A_name_of_invalid_bytes_survives) {
  Put(folder / "caf\xE9.bmp", "content");
  ASSERT_TRUE(Entry("caf\xE9.bmp"));
  EXPECT_EQ(files.ReadAll(folder / "caf\xE9.bmp"), "content");
  EXPECT_EQ(files.Normalised("/x/caf\xE9.bmp"), "/x/caf\xE9.bmp");
}

TEST_F(PosixFiles, A_zero_byte_in_a_name_finds_nothing) {
  Put(folder / "a", "x");
  const std::string path = (folder / "a") + std::string(1, '\0') + ".bmp";
  EXPECT_FALSE(files.Look(path));
  EXPECT_EQ(NumberRaisedBy([&] { files.Open(path); }), 53);
  EXPECT_EQ(NumberRaisedBy([&] { files.WriteAll(path, ""); }), 76);
}

TEST_F(PosixFiles, A_directory_that_is_missing_or_none_raises_its_number) {
  Put(folder / "file", "x");
  EXPECT_EQ(NumberRaisedBy([&] { files.ReadDirectory(folder / "gone"); }), 76);
  EXPECT_EQ(NumberRaisedBy([&] { files.ReadDirectory(folder / "file"); }), 76);
  EXPECT_EQ(files.DirectoryStamp(folder / "gone"), 0U);
  EXPECT_EQ(files.DirectoryStamp(folder / "file"), 0U);
}

TEST_F(PosixFiles, A_directory_that_may_not_be_entered_raises_its_number) {
  mkdir((folder / "closed").c_str(), 0777);
  chmod((folder / "closed").c_str(), 0);
  // Root may enter anything, so the look is somebody else's.
  const uid_t self = geteuid();
  constexpr uid_t nobody = 65534;
  ASSERT_EQ(self == 0 ? seteuid(nobody) : 0, 0);
  const int number = NumberRaisedBy([&] { files.ReadDirectory(folder / "closed"); });
  ASSERT_EQ(self == 0 ? seteuid(self) : 0, 0);
  EXPECT_EQ(number, 75);
}

TEST_F(PosixFiles, The_stamp_changes_with_every_change_of_the_directory) {
  const auto empty = files.DirectoryStamp(folder.Path());
  Put(folder / "a", "x");
  const auto one = files.DirectoryStamp(folder.Path());
  EXPECT_NE(one, empty);
  unlink((folder / "a").c_str());
  EXPECT_NE(files.DirectoryStamp(folder.Path()), one);
}

TEST_F(PosixFiles, The_stamp_of_a_directory_at_rest_stays) {
  const timespec longAgo[2] = {{1000, 0}, {1000, 0}};
  ASSERT_EQ(utimensat(AT_FDCWD, folder.Path().c_str(), longAgo, 0), 0);
  EXPECT_EQ(files.DirectoryStamp(folder.Path()), files.DirectoryStamp(folder.Path()));
}

TEST_F(PosixFiles, A_pipe_does_not_open_and_does_not_hang) {
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(NumberRaisedBy([&] { files.Open(folder / "pipe"); }), 75);
  EXPECT_EQ(NumberRaisedBy([&] { files.Open(folder.Path()); }), 75);
  EXPECT_EQ(NumberRaisedBy([&] { files.Open(folder / "gone"); }), 53);
}

TEST_F(PosixFiles, A_file_is_replaced_whole_and_keeps_its_mode) {
  Put(folder / "a", "old and longer");
  chmod((folder / "a").c_str(), 0640);
  files.WriteAll(folder / "a", "new");
  EXPECT_EQ(Get(folder / "a"), "new");
  struct stat status {};
  ASSERT_EQ(stat((folder / "a").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0640U);
  EXPECT_EQ(files.ReadDirectory(folder.Path()).size(), 1U);
}

TEST_F(PosixFiles, A_new_file_has_the_usual_mode) {
  const mode_t before = umask(022);
  files.WriteAll(folder / "a", "x");
  umask(before);
  struct stat status {};
  ASSERT_EQ(stat((folder / "a").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0644U);
}

TEST_F(PosixFiles, A_link_to_a_file_stays_a_link_when_the_file_is_written) {
  Put(folder / "real", "old");
  ASSERT_EQ(symlink("real", (folder / "link").c_str()), 0);
  files.WriteAll(folder / "link", "new");
  EXPECT_EQ(Get(folder / "real"), "new");
  struct stat status {};
  ASSERT_EQ(lstat((folder / "link").c_str(), &status), 0);
  EXPECT_TRUE(S_ISLNK(status.st_mode));
}

TEST_F(PosixFiles, Writing_where_there_is_no_directory_or_onto_one_raises_its_number) {
  EXPECT_EQ(NumberRaisedBy([&] { files.WriteAll(folder / "none/a", ""); }), 76);
  EXPECT_EQ(NumberRaisedBy([&] { files.WriteAll(folder.Path(), ""); }), 75);
}

TEST_F(PosixFiles, A_full_disk_is_told_and_keeps_the_old_content) {
  EXPECT_EQ(NumberRaisedBy([&] { files.WriteAll("/dev/full", "x"); }), 61);
  Put(folder / "a", "old");
  const SmallFilesOnly limit;
  EXPECT_EQ(NumberRaisedBy([&] { files.WriteAll(folder / "a", std::string(5000, 'x')); }), 61);
  EXPECT_EQ(Get(folder / "a"), "old");
  EXPECT_EQ(files.ReadDirectory(folder.Path()).size(), 1U);
}

TEST_F(PosixFiles, Writing_over_a_file_leaves_nothing_of_the_old_behind) {
  Put(folder / "a.lst", "old");
  chmod((folder / "a.lst").c_str(), 0640);
  files.WriteOver(folder / "a.lst", "new");
  EXPECT_EQ(Get(folder / "a.lst"), "new");
  EXPECT_EQ(files.ReadDirectory(folder.Path()).size(), 1U);
  struct stat status {};
  ASSERT_EQ(stat((folder / "a.lst").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0640U);
}

TEST_F(PosixFiles, On_a_full_disk_a_file_written_over_is_empty_and_what_it_held_stands_beside_it) {
  Put(folder / "a.lst", "old");
  Put(folder / "a.Old.lst", "older");
  const SmallFilesOnly limit;
  try {
    files.WriteOver(folder / "a.lst", std::string(5000, 'x'));
    ADD_FAILURE() << "nothing was raised";
  } catch (const OldContentKept& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::DiskFull);
    EXPECT_EQ(error.Path(), folder / "a.lst");
    EXPECT_EQ(error.KeptPath(), folder / "a.Old2.lst");
  }
  EXPECT_EQ(Get(folder / "a.lst"), "");
  EXPECT_EQ(Get(folder / "a.Old.lst"), "older");
  EXPECT_EQ(Get(folder / "a.Old2.lst"), "old");
}

TEST_F(PosixFiles, Errors_name_the_file_or_folder_that_they_are_about) {
  const std::string missing = folder / "none/x";
  EXPECT_EQ(PathRaisedBy([&] { files.Open(missing); }), missing);
  EXPECT_EQ(PathRaisedBy([&] { files.Open(folder.Path()); }), folder.Path());
  EXPECT_EQ(PathRaisedBy([&] { files.ChDir(missing); }), missing);
  EXPECT_EQ(PathRaisedBy([&] { files.ReadDirectory(missing); }), missing);
  EXPECT_EQ(PathRaisedBy([&] { files.WriteAll(missing, ""); }), missing);
  EXPECT_EQ(PathRaisedBy([&] { files.WriteOver(missing, ""); }), missing);
  EXPECT_EQ(PathRaisedBy([&] { files.Remove(missing); }), missing);
  EXPECT_EQ(PathRaisedBy([&] { files.MakeDirectory(missing); }), missing);
  EXPECT_EQ(PathRaisedBy([&] { files.OpenForOutput(1, missing); }), missing);
  files.OpenForOutput(1, folder / "a");
  EXPECT_EQ(PathRaisedBy([&] { files.OpenForAppend(2, folder / "a"); }), folder / "a");
  const SmallFilesOnly limit;
  EXPECT_EQ(PathRaisedBy([&] { files.Print(1, std::string(5000, 'x')); }), folder / "a");
}

TEST_F(PosixFiles, An_empty_file_written_over_leaves_nothing_beside_it) {
  Put(folder / "a", "");
  const SmallFilesOnly limit;
  EXPECT_EQ(NumberRaisedBy([&] { files.WriteOver(folder / "a", std::string(5000, 'x')); }), 61);
  EXPECT_EQ(files.ReadDirectory(folder.Path()).size(), 1U);
}

TEST_F(PosixFiles, Writing_over_a_link_keeps_the_link) {
  Put(folder / "real", "old");
  ASSERT_EQ(symlink("real", (folder / "link").c_str()), 0);
  files.WriteOver(folder / "link", "new");
  EXPECT_EQ(Get(folder / "real"), "new");
  struct stat status {};
  ASSERT_EQ(lstat((folder / "link").c_str(), &status), 0);
  EXPECT_TRUE(S_ISLNK(status.st_mode));
}

TEST_F(PosixFiles, A_name_given_is_safe_on_the_disk_with_its_folder) {
  syncedFolders.clear();
  files.WriteAll(folder / "a", "x");
  EXPECT_THAT(syncedFolders, testing::ElementsAre(folder.Path()));
  syncedFolders.clear();
  files.WriteOver(folder / "a", "y");
  // The old file's new name, and the new file, before the old one goes.
  EXPECT_THAT(syncedFolders, testing::ElementsAre(folder.Path(), folder.Path()));
}

TEST_F(PosixFiles, A_file_that_can_not_step_aside_is_not_opened) {
  if (geteuid() == 0) GTEST_SKIP() << "the superuser may write everywhere";
  Put(folder / "a", "old");
  chmod(folder.Path().c_str(), 0555);
  EXPECT_EQ(NumberRaisedBy([&] { files.WriteOver(folder / "a", "new"); }), 75);
  chmod(folder.Path().c_str(), 0755);
  EXPECT_EQ(Get(folder / "a"), "old");
}

TEST_F(PosixFiles, Writing_over_what_may_not_be_written_raises_its_number) {
  EXPECT_EQ(NumberRaisedBy([&] { files.WriteOver(folder / "none/a", ""); }), 76);
  EXPECT_EQ(NumberRaisedBy([&] { files.WriteOver(folder.Path(), ""); }), 75);
}

TEST_F(PosixFiles, A_writer_that_fails_half_way_keeps_the_old_content_and_leaves_nothing_behind) {
  files.WriteAll(folder / "a", "old");
  const auto fail = [](ByteSink& sink) {
    sink.WriteText("half");
    throw RunTimeError(ErrorNumber::OutOfMemory);
  };
  EXPECT_EQ(NumberRaisedBy([&] { files.Write(folder / "a", fail); }), 7);
  EXPECT_EQ(NumberRaisedBy([&] { files.Write(folder / "b", fail); }), 7);
  EXPECT_EQ(files.ReadAll(folder / "a"), "old");
  EXPECT_EQ(files.ReadDirectory(folder.Path()).size(), 1U);
}

TEST_F(PosixFiles, Removing_and_making_raise_their_numbers) {
  EXPECT_EQ(NumberRaisedBy([&] { files.Remove(folder / "gone"); }), 53);
  files.MakeDirectory(folder / "dir");
  EXPECT_EQ(NumberRaisedBy([&] { files.MakeDirectory(folder / "dir"); }), 75);
  EXPECT_EQ(NumberRaisedBy([&] { files.MakeDirectory(folder / "none/dir"); }), 76);
  EXPECT_NE(NumberRaisedBy([&] { files.Remove(folder / "dir"); }), 0);
}

TEST_F(PosixFiles, The_root_is_the_first_drive) {
  EXPECT_EQ(files.Drives().front(), "/");
  EXPECT_EQ(files.DriveOf(folder.Path()), "/");
}

TEST(Mounts, Only_what_is_plugged_in_is_a_drive) {
  const char* table =
      "/dev/sda1 / ext4 rw 0 0\n"
      "proc /proc proc rw 0 0\n"
      "/dev/sdc1 /run/media/ada/DISK\\040ONE vfat rw 0 0\n"
      "/dev/sdb1 /media/stick vfat rw 0 0\n"
      "/dev/sdb1 /media/stick vfat rw 0 0\n"
      "none /mediation tmpfs rw 0 0\n"
      "nas:/x /mnt nfs rw 0 0\n"
      "broken";
  EXPECT_THAT(RemovablePlaces(table),
              testing::ElementsAre("/media/stick", "/mnt", "/run/media/ada/DISK ONE"));
}

TEST_F(PosixFiles, The_current_directory_changes) {
  const std::string before = files.CurrentDirectory();
  files.ChDir(folder.Path());
  EXPECT_EQ(files.Normalised("a"), files.CurrentDirectory() + "/a");
  Put(folder / "a", "there");
  EXPECT_EQ(files.ReadAll("a"), "there");
  EXPECT_EQ(NumberRaisedBy([&] { files.ChDir(folder / "none"); }), 76);
  files.ChDir(before);
}

TEST_F(PosixFiles, What_is_printed_to_a_number_stands_in_the_file_at_once) {
  Put(folder / "report", "old\n");
  files.OpenForAppend(1, folder / "report");
  files.Print(1, "one\n");
  EXPECT_EQ(Get(folder / "report"), "old\none\n");
  files.Close(1);
  files.OpenForOutput(1, folder / "report");
  EXPECT_EQ(Get(folder / "report"), "");
  files.Print(1, "new\n");
  files.Close(1);
  EXPECT_EQ(Get(folder / "report"), "new\n");
}

TEST_F(PosixFiles, What_can_not_be_opened_to_be_written_is_a_path_access_error) {
  EXPECT_EQ(NumberRaisedBy([&] { files.OpenForAppend(1, folder.Path()); }), 75);
  EXPECT_EQ(NumberRaisedBy([&] { files.OpenForAppend(1, folder / "none/report"); }), 76);
  // The number is free still.
  files.OpenForAppend(1, folder / "report");
  files.Close(1);
}

TEST_F(PosixFiles, Printing_onto_a_full_disk_raises) {
  files.OpenForOutput(1, folder / "report");
  const SmallFilesOnly small;
  EXPECT_EQ(NumberRaisedBy([&] { files.Print(1, std::string(2000, 'x')); }), 61);
  files.Close(1);
}

}  // namespace
}  // namespace lumidex
