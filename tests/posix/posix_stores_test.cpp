#include <gmock/gmock.h>
#include <sys/stat.h>

#include "base/run_time_error.h"
#include "platform/posix/desktop_programs.h"
#include "platform/posix/ini_file.h"
#include "platform/posix/posix_desktop.h"
#include "platform/posix/posix_settings_store.h"
#include "platform/posix/posix_shell.h"
#include "platform/posix/start_process.h"
#include "posix/temporary_folder.h"

namespace lumidex {
namespace {

Environment ConfigIn(const std::string& folder) {
  return
      [folder](const char* name) { return std::string(name) == "XDG_CONFIG_HOME" ? folder : std::string(); };
}

TEST(SettingsStore, A_value_is_found_by_the_next_process) {
  TemporaryFolder folder;
  PosixSettingsStore(ConfigIn(folder.Path())).SaveSetting("Options", "Show Tips at Startup", "0");
  const PosixSettingsStore next(ConfigIn(folder.Path()));
  EXPECT_EQ(next.GetSetting("Options", "Show Tips at Startup", "1"), "0");
  EXPECT_EQ(next.GetSetting("Options", "Other", "preset"), "preset");
}

TEST(SettingsStore, What_can_not_be_written_holds_for_this_run) {
  PosixSettingsStore store(ConfigIn("/proc/none"));
  store.SaveSetting("Options", "Key", "value");
  EXPECT_EQ(store.GetSetting("Options", "Key", ""), "value");
}

TEST(IniFileTest, Any_text_survives) {
  TemporaryFolder folder;
  const std::string odd = " a=b\\n [x]\r\n\xFF ";
  IniFile(folder / "a.ini").SetValue("Control Panel\\Desktop", "k", odd);
  EXPECT_EQ(IniFile(folder / "a.ini").Value("Control Panel\\Desktop", "k"), odd);
}

TEST(IniFileTest, Values_of_another_process_stay) {
  TemporaryFolder folder;
  IniFile first(folder / "a.ini"), second(folder / "a.ini");
  first.SetValue("S", "one", "1");
  second.SetValue("S", "two", "2");
  EXPECT_EQ(IniFile(folder / "a.ini").Value("S", "one"), "1");
  EXPECT_EQ(IniFile(folder / "a.ini").Value("S", "two"), "2");
}

TEST(Registry, Values_are_kept_for_the_user) {
  TemporaryFolder folder;
  RegistryKey key = 0;
  PosixDesktop desktop(ConfigIn(folder.Path()));
  ASSERT_EQ(desktop.RegOpenKeyExA(HKEY_CURRENT_USER, "Control Panel\\Desktop", KEY_SET_VALUE, key), 0);
  EXPECT_EQ(desktop.RegSetValueExA(key, "TileWallpaper", REG_SZ, "1"), 0);
  EXPECT_EQ(desktop.RegCloseKey(key), 0);
  EXPECT_NE(desktop.RegSetValueExA(key, "TileWallpaper", REG_SZ, "0"), 0);
  PosixDesktop next(ConfigIn(folder.Path()));
  std::string value(100, ' ');
  std::uint32_t type = 0;
  ASSERT_EQ(next.RegOpenKeyExA(HKEY_CURRENT_USER, "Control Panel\\Desktop", KEY_READ_WRITE, key), 0);
  EXPECT_EQ(next.RegQueryValueExA(key, "TileWallpaper", type, value), 0);
  EXPECT_EQ(type, REG_SZ);
  EXPECT_EQ(value, "1");
  EXPECT_NE(next.RegQueryValueExA(key, "WallpaperStyle", type, value), 0);
}

TEST(Registry, A_value_that_is_longer_than_the_buffer_is_refused) {
  TemporaryFolder folder;
  RegistryKey key = 0;
  PosixDesktop desktop(ConfigIn(folder.Path()));
  ASSERT_EQ(desktop.RegOpenKeyExA(HKEY_CURRENT_USER, "Key", KEY_READ_WRITE, key), 0);
  ASSERT_EQ(desktop.RegSetValueExA(key, "name", REG_SZ, "12345"), 0);
  std::uint32_t type = 0;
  std::string value(4, ' ');
  EXPECT_EQ(desktop.RegQueryValueExA(key, "name", type, value), 234);
  EXPECT_EQ(value, "    ");
}

TEST(Registry, Only_texts_are_kept) {
  TemporaryFolder folder;
  RegistryKey key = 0;
  PosixDesktop desktop(ConfigIn(folder.Path()));
  ASSERT_EQ(desktop.RegOpenKeyExA(HKEY_CURRENT_USER, "Key", KEY_READ_WRITE, key), 0);
  EXPECT_NE(desktop.RegSetValueExA(key, "name", REG_DWORD, "1234"), 0);
}

TEST(Registry, The_machines_own_keys_are_not_there) {
  TemporaryFolder folder;
  RegistryKey key = 0;
  EXPECT_NE(PosixDesktop(ConfigIn(folder.Path()))
                .RegOpenKeyExA(HKEY_LOCAL_MACHINE, "SOFTWARE", KEY_READ_WRITE, key),
            0);
}

Environment WithPrograms(const TemporaryFolder& folder, const std::string& desktop) {
  return [path = folder.Path(), desktop](const char* name) {
    const std::string variable = name;
    if (variable == "XDG_CURRENT_DESKTOP") return desktop;
    return variable == "PATH" || variable == "XDG_CONFIG_HOME" ? path : std::string();
  };
}

void Install(const TemporaryFolder& folder, const std::string& program) {
  Put(folder / program, "");
  ASSERT_EQ(chmod((folder / program).c_str(), 0700), 0);
}

TEST(DesktopPrograms, The_running_desktops_own_comes_before_others) {
  TemporaryFolder folder;
  Install(folder, "gnome-control-center");
  Install(folder, "kinfocenter");
  const auto found = [&](const std::string& desktop) {
    return FindDesktopProgram(SystemInformationPrograms(), WithPrograms(folder, desktop)).value().front();
  };
  EXPECT_EQ(found("KDE"), "kinfocenter");
  EXPECT_EQ(found("ubuntu:GNOME"), "gnome-control-center");
  EXPECT_EQ(found("XFCE"), "gnome-control-center");
}

TEST(DesktopPrograms, Without_any_there_is_none) {
  TemporaryFolder folder;
  Put(folder / "arandr", "not to be run");
  EXPECT_FALSE(FindDesktopProgram(DisplaySettingsPrograms(), WithPrograms(folder, "XFCE")));
}

TEST(Registry, The_machine_tells_the_program_for_facts_about_the_system) {
  TemporaryFolder folder;
  Install(folder, "hardinfo");
  PosixDesktop desktop(WithPrograms(folder, ""));
  RegistryKey key = 0;
  const std::string path = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
  ASSERT_EQ(desktop.RegOpenKeyExA(HKEY_LOCAL_MACHINE, path, KEY_READ_WRITE, key), 0);
  std::uint32_t type = 0;
  std::string value(100, ' ');
  EXPECT_EQ(desktop.RegQueryValueExA(key, "PATH", type, value), 0);
  EXPECT_EQ(type, REG_SZ);
  EXPECT_EQ(value, "hardinfo");
  EXPECT_NE(desktop.RegQueryValueExA(key, "OTHER", type, value), 0);
  EXPECT_NE(desktop.RegSetValueExA(key, "PATH", REG_SZ, "other"), 0);
  EXPECT_EQ(desktop.RegCloseKey(key), 0);
  EXPECT_NE(desktop.RegCloseKey(key), 0);
}

TEST(StartingPrograms, A_missing_program_is_told) {
  PosixShell shell;
  try {
    shell.StartProgram("/nowhere/no-such-program with arguments");
    FAIL() << "it was started";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::FileNotFound);
  }
}

TEST(StartingPrograms, No_shell_reads_the_arguments) {
  TemporaryFolder folder;
  const std::string strange = folder / "$(touch bad); 'x' \"y\"";
  Put(folder / "content", "arrived");
  // Opening the pipe waits for the program at its other end.
  ASSERT_EQ(mkfifo(strange.c_str(), 0600), 0);
  ASSERT_EQ(StartDetached({"cp", folder / "content", strange}), 0);
  EXPECT_EQ(Get(strange), "arrived");
  EXPECT_FALSE(std::filesystem::exists(folder / "bad"));
}

TEST(StartingPrograms, A_missing_file_and_another_verb_are_refused) {
  PosixShell shell;
  EXPECT_EQ(shell.ShellExecuteA(0, "Open", "/nowhere/file.html", "", "", 1), 2);
  EXPECT_LE(shell.ShellExecuteA(0, "print", "/etc/hostname", "", "", 1), 32);
}

}  // namespace
}  // namespace lumidex
