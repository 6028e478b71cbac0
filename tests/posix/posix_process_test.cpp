#include "platform/posix/posix_process.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <map>

#include "platform/posix/absolute_path.h"
#include "platform/posix/posix_special_folders.h"
#include "posix/temporary_folder.h"

namespace lumidex {
namespace {

Environment Variables(std::map<std::string, std::string> values) {
  return [values](const char* name) {
    const auto found = values.find(name);
    return found == values.end() ? std::string() : found->second;
  };
}

std::string Quoted(std::vector<const char*> arguments) {
  arguments.insert(arguments.begin(), "lumidex");
  return QuotedArgument(static_cast<int>(arguments.size()), arguments.data(), "/home/ada");
}

TEST(CommandLine, Of_a_relative_path_no_points_are_left) {
  EXPECT_EQ(Quoted({"./photo.jpg"}), "\"/home/ada/photo.jpg\"");
  EXPECT_EQ(Quoted({"../bob/./photo.jpg"}), "\"/home/bob/photo.jpg\"");
  EXPECT_EQ(Quoted({"../../../photo.jpg"}), "\"/photo.jpg\"");
  EXPECT_EQ(Quoted({"/home//ada/../bob/photo.jpg"}), "\"/home/bob/photo.jpg\"");
  EXPECT_EQ(Quoted({"."}), "\"/home/ada\"");
  EXPECT_EQ(Quoted({"..hidden/...jpg"}), "\"/home/ada/..hidden/...jpg\"");
}

TEST(CommandLine, Links_keep_their_names_but_where_points_lead_out_of_them) {
  const TemporaryFolder folder;
  std::filesystem::create_directories(folder / "far/album");
  std::filesystem::create_directory_symlink(folder / "far/album", folder / "near");
  const auto absolute = [&](const std::string& path) { return AbsolutePath(path, folder.Path()); };
  EXPECT_EQ(absolute("./near/a.jpg"), folder.Path() + "/near/a.jpg");
  EXPECT_EQ(absolute("near/../b.jpg"), folder.Path() + "/far/b.jpg");
  EXPECT_EQ(absolute("far/../near/a.jpg"), folder.Path() + "/near/a.jpg");
}

TEST(CommandLine, The_current_directory_keeps_the_name_by_which_the_user_went_there) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder / "far");
  std::filesystem::create_directory_symlink(folder / "far", folder / "near");
  char before[4096];
  ASSERT_NE(getcwd(before, sizeof before), nullptr);
  ASSERT_EQ(chdir((folder.Path() + "/far").c_str()), 0);
  const auto named = [](const std::string& name) { return CurrentDirectoryName(Variables({{"PWD", name}})); };
  EXPECT_EQ(named(folder.Path() + "/near"), folder.Path() + "/near");
  EXPECT_EQ(named("/"), folder.Path() + "/far");
  EXPECT_EQ(named(""), folder.Path() + "/far");
  ASSERT_EQ(chdir(before), 0);
}

TEST(CommandLine, Without_an_argument_it_is_empty) {
  EXPECT_EQ(Quoted({}), "");
  EXPECT_EQ(Quoted({""}), "");
}

TEST(CommandLine, A_path_is_made_absolute_and_quoted) {
  EXPECT_EQ(Quoted({"photo.jpg"}), "\"/home/ada/photo.jpg\"");
  EXPECT_EQ(Quoted({"/pics/two words.jpg"}), "\"/pics/two words.jpg\"");
}

TEST(CommandLine, Only_the_first_argument_counts) {
  EXPECT_EQ(Quoted({"/a.jpg", "/b.jpg"}), "\"/a.jpg\"");
}

TEST(CommandLine, The_address_of_a_file_is_decoded) {
  EXPECT_EQ(Quoted({"file:///pics/two%20words.jpg"}), "\"/pics/two words.jpg\"");
  EXPECT_EQ(Quoted({"file://localhost/a%e4.jpg"}), "\"/a\xE4.jpg\"");
  EXPECT_EQ(Quoted({"file:/a.jpg"}), "\"/a.jpg\"");
  EXPECT_EQ(Quoted({"/a%20b.jpg"}), "\"/a%20b.jpg\"");
}

TEST(CommandLine, A_directory_named_with_its_separator_has_the_same_name_without) {
  EXPECT_EQ(Quoted({"pics/"}), Quoted({"pics"}));
  EXPECT_EQ(Quoted({"/pics//"}), "\"/pics\"");
  EXPECT_EQ(Quoted({"file:///pics/"}), "\"/pics\"");
  EXPECT_EQ(Quoted({"/"}), "\"/\"");
}

TEST(CommandLine, Bytes_that_are_no_text_survive) {
  EXPECT_EQ(Quoted({"/caf\xE9.jpg"}), "\"/caf\xE9.jpg\"");
}

TEST(ProgramFolder, A_copy_in_a_writable_folder_keeps_its_files_beside_itself) {
  TemporaryFolder folder;
  EXPECT_EQ(ProgramFolder(folder.Path(), "/nowhere", Variables({})), folder.Path());
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST(ProgramFolder, An_installed_program_keeps_them_with_the_user) {
  TemporaryFolder home;
  Put(home / "installed/TIPOFDAY.TXT", "tips");
  const auto environment = Variables({{"HOME", home.Path()}, {"XDG_DATA_HOME", home / "data"}});
  const std::string folder = ProgramFolder("/proc", home / "installed", environment);
  EXPECT_EQ(folder, home / "data/Lumidex");
  EXPECT_EQ(Get(folder + "/TIPOFDAY.TXT"), "tips");
}

TEST(ProgramFolder, A_file_of_the_users_own_stays_and_a_stale_link_is_renewed) {
  TemporaryFolder home;
  Put(home / "installed/TIPOFDAY.TXT", "tips");
  Put(home / "installed/help", "help");
  Put(home / ".local/share/Lumidex/TIPOFDAY.TXT", "my own");
  ASSERT_EQ(symlink("/gone/help", (home / ".local/share/Lumidex/help").c_str()), 0);
  const std::string folder = ProgramFolder("/proc", home / "installed", Variables({{"HOME", home.Path()}}));
  EXPECT_EQ(Get(folder + "/TIPOFDAY.TXT"), "my own");
  EXPECT_EQ(Get(folder + "/help"), "help");
}

TEST(ProgramFolder, Where_nothing_can_be_made_it_is_the_executables) {
  EXPECT_EQ(ProgramFolder("/proc", "/nowhere", Variables({{"HOME", "/proc/none"}})), "/proc");
}

TEST(Instance, A_second_process_finds_the_first) {
  TemporaryFolder runtime;
  const auto environment = Variables({{"XDG_RUNTIME_DIR", runtime.Path()}});
  const InstanceLock first(environment);
  EXPECT_FALSE(first.IsHeldByAnother());
  const InstanceLock second(environment);
  EXPECT_TRUE(second.IsHeldByAnother());
}

TEST(Instance, The_lock_goes_with_the_process_that_held_it) {
  TemporaryFolder runtime;
  const auto environment = Variables({{"XDG_RUNTIME_DIR", runtime.Path()}});
  const pid_t child = fork();
  if (child == 0) {
    const InstanceLock held(environment);
    _exit(held.IsHeldByAnother() ? 1 : 0);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  ASSERT_EQ(status, 0);
  EXPECT_FALSE(InstanceLock(environment).IsHeldByAnother());
}

TEST(SpecialFolders, They_come_from_the_desktops_own_file) {
  TemporaryFolder home;
  Put(home / ".config/user-dirs.dirs",
      "# comment\nXDG_DESKTOP_DIR=\"$HOME/Schreib tisch\"\nXDG_DOCUMENTS_DIR=\"" + (home / "papers") +
          "/\"\nXDG_PICTURES_DIR=\"$HOME/gone\"\n");
  mkdir((home / "Schreib tisch").c_str(), 0777);
  mkdir((home / "papers").c_str(), 0777);
  mkdir((home / "Pictures").c_str(), 0777);
  const PosixSpecialFolders folders(Variables({{"HOME", home.Path()}}));
  EXPECT_EQ(folders.Desktop(), home / "Schreib tisch");
  EXPECT_EQ(folders.Documents(), home / "papers");
  EXPECT_EQ(folders.Favorites(), home / "Pictures");
}

TEST(SpecialFolders, Without_any_they_are_the_home_folder) {
  TemporaryFolder home;
  const PosixSpecialFolders folders(Variables({{"HOME", home.Path()}}));
  EXPECT_EQ(folders.Desktop(), home.Path());
  EXPECT_EQ(folders.Documents(), home.Path());
}

}  // namespace
}  // namespace lumidex
