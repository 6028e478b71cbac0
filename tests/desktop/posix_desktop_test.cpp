// From the calls of the program to what the desktop has in the end.

#include <gmock/gmock.h>

#include <semaphore>

#include "desktop/recorded_tools.h"
#include "platform/posix/posix_desktop.h"
#include "posix/temporary_folder.h"

namespace lumidex {
namespace {

class PosixDesktopTest : public testing::Test {
 protected:
  PosixDesktopTest() {
    setenv("GSETTINGS_BACKEND", "keyfile", 1);
    setenv("XDG_CONFIG_HOME", (home_ / "config").c_str(), 1);
    Put(home_ / "Lumidex.bmp", "not looked at");
  }
  std::string Shown(const char* key) {
    services_.Finish(std::chrono::seconds(60));
    const auto answer = RunProgram({"gsettings", "get", "org.mate.background", key});
    return answer ? answer->output.substr(0, answer->output.find('\n')) : "(no answer)";
  }
  bool Set(const char* tile, const char* style, const std::string& file) {
    RegistryKey key = 0;
    desktop_.RegOpenKeyExA(HKEY_CURRENT_USER, "Control Panel\\Desktop", 0x20006, key);
    desktop_.RegSetValueExA(key, "TileWallpaper", REG_SZ, tile);
    desktop_.RegSetValueExA(key, "WallpaperStyle", REG_SZ, style);
    desktop_.RegCloseKey(key);
    return desktop_.SystemParametersInfoA(SPI_SETDESKWALLPAPER, 0, file, 3);
  }

  TemporaryFolder home_;
  std::map<std::string, std::string> variables_{{"HOME", home_.Path()}, {"XDG_CURRENT_DESKTOP", "MATE"}};
  const Environment environment_ = [this](const char* name) { return variables_[name]; };
  RecordedBus bus_;
  DesktopServices services_{bus_, environment_};
  PosixDesktop desktop_{environment_, &services_};
};

TEST_F(PosixDesktopTest, The_mode_in_the_registry_and_the_file_reach_the_desktop_and_go_again) {
  const std::string before = Shown("picture-filename");
  EXPECT_TRUE(Set("0", "0", home_ / "Lumidex.bmp"));
  EXPECT_EQ(Shown("picture-options"), "'centered'");
  EXPECT_THAT(Shown("picture-filename"), testing::HasSubstr(home_ / ".local/share/Lumidex/wallpaper/"));
  EXPECT_TRUE(Set("0", "2", home_ / "Lumidex.bmp"));
  EXPECT_EQ(Shown("picture-options"), "'stretched'");
  EXPECT_TRUE(Set("1", "0", home_ / "Lumidex.bmp"));
  EXPECT_EQ(Shown("picture-options"), "'wallpaper'");
  EXPECT_TRUE(Set("1", "0", ""));
  EXPECT_EQ(Shown("picture-filename"), before);
}

// Answers nobody until the test lets it.
class HungBus final : public SessionBus {
 public:
  bool HasOwner(const std::string&) override {
    isAsked_.release();
    mayAnswer_.acquire();
    return false;
  }
  std::optional<std::vector<BusValue>> Call(const BusCall&, int) override { return {}; }
  void AwaitQuestion() { isAsked_.acquire(); }
  // To every question that may come.
  void Answer() { mayAnswer_.release(1000); }

 private:
  std::counting_semaphore<1000> isAsked_{0};
  std::counting_semaphore<1000> mayAnswer_{0};
};

// Waiting for it would last for ever, so coming back is the proof.
TEST_F(PosixDesktopTest, A_service_that_never_answers_holds_neither_the_window_nor_the_end_nor_wallpapers) {
  HungBus hung;
  DesktopServices services(hung, environment_);
  services.KeepScreenAwake(true);
  hung.AwaitQuestion();
  services.SetWallpaper(home_ / "Lumidex.bmp", WallpaperMode::Centered);
  services.KeepScreenAwake(false);
  services.Finish(std::chrono::hours(1));
  EXPECT_THAT(Shown("picture-filename"), testing::HasSubstr(home_ / ".local/share/Lumidex/wallpaper/"));
  services.ClearWallpaper();
  services.Finish(std::chrono::hours(1));
  hung.Answer();
}

TEST_F(PosixDesktopTest, Other_actions_fail) {
  EXPECT_FALSE(desktop_.SystemParametersInfoA(SPI_SETDESKWALLPAPER + 1, 0, home_ / "Lumidex.bmp", 3));
}

TEST_F(PosixDesktopTest, Without_a_desktop_the_call_fails) {
  variables_.clear();
  DesktopServices none(bus_, environment_);
  PosixDesktop desktop(environment_, &none);
  EXPECT_FALSE(desktop.SystemParametersInfoA(SPI_SETDESKWALLPAPER, 0, home_ / "Lumidex.bmp", 3));
  EXPECT_FALSE(PosixDesktop(environment_).SystemParametersInfoA(SPI_SETDESKWALLPAPER, 0, "", 3));
}

}  // namespace
}  // namespace lumidex
