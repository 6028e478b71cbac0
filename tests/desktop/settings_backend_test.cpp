// Against the real settings tool with the real schemas, whose values go into a file of the test.

#include <gmock/gmock.h>

#include "desktop/recorded_tools.h"
#include "platform/posix/wallpaper/settings_backend.h"
#include "posix/temporary_folder.h"

namespace lumidex {
namespace {

class SettingsBackendTest : public testing::Test {
 protected:
  SettingsBackendTest() {
    setenv("GSETTINGS_BACKEND", "keyfile", 1);
    setenv("XDG_CONFIG_HOME", config_.Path().c_str(), 1);
  }
  static std::string Ask(const std::string& schema, const std::string& key) {
    const auto answer = RunProgram({"gsettings", "get", schema, key});
    return answer ? answer->output.substr(0, answer->output.find('\n')) : "(no answer)";
  }
  static void Write(const std::string& schema, const std::string& key, const std::string& value) {
    ASSERT_TRUE(RunProgram({"gsettings", "set", schema, key, value}));
  }
  std::string Kept() const { return Get(config_ / "glib-2.0/settings/keyfile"); }

  TemporaryFolder config_;
  RecordedBus bus_;
  DesktopTools tools_{ReadEnvironment, bus_, "/home/ada/my pictures' #1"};
  const std::string file_ = tools_.folder + "/wallpaper-A.bmp";
  const std::string address_ = "'file:///home/ada/my%20pictures%27%20%231/wallpaper-A.bmp'";
};

const std::string gnome = "org.gnome.desktop.background";

TEST_F(SettingsBackendTest, Gnome_takes_the_address_for_light_and_dark_and_the_mode) {
  SettingsBackend backend(tools_, gnomeSchema);
  const std::pair<WallpaperMode, std::string> modes[] = {{WallpaperMode::Centered, "'centered'"},
                                                         {WallpaperMode::Stretched, "'stretched'"},
                                                         {WallpaperMode::Tiled, "'wallpaper'"}};
  for (const auto& [mode, option] : modes) {
    EXPECT_TRUE(backend.Set(file_, mode));
    EXPECT_EQ(Ask(gnome, "picture-options"), option);
    EXPECT_EQ(Ask(gnome, "picture-uri"), address_);
    EXPECT_EQ(Ask(gnome, "picture-uri-dark"), address_);
    EXPECT_TRUE(backend.ShowsOurs());
  }
}

TEST_F(SettingsBackendTest, What_the_user_had_comes_back_to_the_letter) {
  SettingsBackend backend(tools_, gnomeSchema);
  Write(gnome, "picture-uri", "'file:///home/ada/it%27s.png'");
  Write(gnome, "picture-options", "'spanned'");
  EXPECT_FALSE(backend.ShowsOurs());
  const auto before = backend.Remember();
  backend.Set(file_, WallpaperMode::Tiled);
  EXPECT_TRUE(backend.Restore(before));
  EXPECT_EQ(Ask(gnome, "picture-uri"), "'file:///home/ada/it%27s.png'");
  EXPECT_EQ(Ask(gnome, "picture-options"), "'spanned'");
}

TEST_F(SettingsBackendTest, What_was_the_distribution_s_own_is_reset_instead_of_written) {
  SettingsBackend backend(tools_, gnomeSchema);
  const std::string own = Ask(gnome, "picture-uri");
  const auto before = backend.Remember();
  backend.Set(file_, WallpaperMode::Centered);
  EXPECT_THAT(Kept(), testing::HasSubstr("picture-uri"));
  EXPECT_TRUE(backend.Restore(before));
  EXPECT_EQ(Ask(gnome, "picture-uri"), own);
  EXPECT_THAT(Kept(), testing::Not(testing::HasSubstr("picture-uri")));
}

TEST_F(SettingsBackendTest, With_nothing_remembered_the_picture_goes) {
  SettingsBackend backend(tools_, gnomeSchema);
  backend.Set(file_, WallpaperMode::Centered);
  EXPECT_TRUE(backend.Restore({}));
  EXPECT_EQ(Ask(gnome, "picture-options"), "'none'");
}

TEST_F(SettingsBackendTest, Cinnamon_stops_changing_the_picture_by_itself_and_starts_again) {
  SettingsBackend backend(tools_, cinnamonSchema);
  const std::string show = "org.cinnamon.desktop.background.slideshow";
  Write(show, "slideshow-enabled", "true");
  const auto before = backend.Remember();
  EXPECT_TRUE(backend.Set(file_, WallpaperMode::Stretched));
  EXPECT_EQ(Ask("org.cinnamon.desktop.background", "picture-uri"), address_);
  EXPECT_EQ(Ask("org.cinnamon.desktop.background", "picture-options"), "'stretched'");
  EXPECT_EQ(Ask(show, "slideshow-enabled"), "false");
  EXPECT_TRUE(backend.Restore(before));
  EXPECT_EQ(Ask(show, "slideshow-enabled"), "true");
}

TEST_F(SettingsBackendTest, Mate_takes_a_plain_path_with_any_signs_in_it) {
  SettingsBackend backend(tools_, mateSchema);
  const std::string mate = "org.mate.background";
  const std::string own = Ask(mate, "picture-filename");
  const auto before = backend.Remember();
  EXPECT_TRUE(backend.Set(file_, WallpaperMode::Tiled));
  EXPECT_EQ(Ask(mate, "picture-filename"), "\"" + file_ + "\"");
  EXPECT_EQ(Ask(mate, "picture-options"), "'wallpaper'");
  EXPECT_TRUE(backend.ShowsOurs());
  EXPECT_TRUE(backend.Restore(before));
  EXPECT_EQ(Ask(mate, "picture-filename"), own);
  // It knows no "none".
  EXPECT_TRUE(backend.Restore({}));
  EXPECT_EQ(Ask(mate, "picture-filename"), "''");
}

TEST_F(SettingsBackendTest, A_schema_that_is_not_there_is_left_alone) {
  SettingsBackend backend(tools_, deepinSchema);
  EXPECT_FALSE(backend.ShowsOurs());
  EXPECT_EQ(backend.Remember(), std::nullopt);
  EXPECT_FALSE(backend.Set(file_, WallpaperMode::Centered));
}

TEST(SettingsBackendArguments, The_options_come_before_the_picture) {
  RecordedTools world;
  world.answers[{"gsettings", "list-keys", gnome}] = {0, "picture-options\npicture-uri\n"};
  world.anyAnswer["gsettings"] = {0, ""};
  SettingsBackend(world.tools, gnomeSchema).Set("/a.bmp", WallpaperMode::Centered);
  std::vector<std::string> written;
  for (const auto& run : world.runs) {
    if (run[1] == "set") written.push_back(run[3]);
  }
  EXPECT_THAT(written, testing::ElementsAre("picture-options", "picture-uri"));
}

TEST(SettingsBackendArguments, A_desktop_that_does_not_keep_the_value_has_not_taken_it) {
  RecordedTools world;
  world.answers[{"gsettings", "list-keys", gnome}] = {0, "picture-options\npicture-uri\n"};
  world.anyAnswer["gsettings"] = {0, "'file:///other.png'\n"};
  EXPECT_FALSE(SettingsBackend(world.tools, gnomeSchema).Set("/a.bmp", WallpaperMode::Centered));
}

}  // namespace
}  // namespace lumidex
