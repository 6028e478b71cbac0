// Desktops that are told by programs and bus calls: what exactly they are told.

#include <gmock/gmock.h>

#include "desktop/recorded_tools.h"
#include "platform/posix/wallpaper/canvas_backends.h"
#include "platform/posix/wallpaper/deepin_backend.h"
#include "platform/posix/wallpaper/pcmanfm_backends.h"
#include "platform/posix/wallpaper/plasma_backend.h"
#include "platform/posix/wallpaper/portal_backend.h"
#include "platform/posix/wallpaper/sway_backend.h"
#include "posix/temporary_folder.h"

namespace lumidex {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Arguments = std::vector<std::string>;

constexpr auto centered = WallpaperMode::Centered;
constexpr auto stretched = WallpaperMode::Stretched;
constexpr auto tiled = WallpaperMode::Tiled;

std::string Text(const BusValue& value) {
  return value.Text() ? *value.Text() : "(no text)";
}

class CommandedBackend : public testing::Test {
 protected:
  RecordedTools world_;
  const std::string ours_ = world_.tools.folder + "/wallpaper-A.bmp";
};

TEST_F(CommandedBackend, Sway_gets_the_path_as_an_argument_of_its_own) {
  world_.anyAnswer["swaymsg"] = {};
  SwayBackend backend(world_.tools, [](const std::string&) { return std::vector<RunningProcess>(); });
  for (const auto mode : {centered, stretched, tiled}) EXPECT_TRUE(backend.Set(ours_, mode));
  EXPECT_THAT(world_.runs, ElementsAre(Arguments{"swaymsg", "output", "*", "bg", ours_, "center"},
                                       Arguments{"swaymsg", "output", "*", "bg", ours_, "stretch"},
                                       Arguments{"swaymsg", "output", "*", "bg", ours_, "tile"}));
}

TEST_F(CommandedBackend, Sway_is_never_given_a_path_that_it_would_read_as_a_command) {
  world_.anyAnswer["swaymsg"] = {};
  SwayBackend backend(world_.tools, [](const std::string&) { return std::vector<RunningProcess>(); });
  for (const char* path : {"/home/a b/x.bmp", "/home/$(id)/x.bmp", "/home/a;exit/x.bmp", "/home/\"/x.bmp"}) {
    EXPECT_FALSE(backend.Set(path, centered)) << path;
  }
  EXPECT_TRUE(world_.runs.empty());
}

TEST_F(CommandedBackend, Sway_gets_each_output_s_own_background_back) {
  std::vector<RunningProcess> running = {{7,
                                          {"swaybg", "-o", "eDP-1", "-i", "/usr/a.png", "-m", "fill", "-o",
                                           "DP-2", "-i", "/usr/b.png", "-m", "tile"}},
                                         {8, {"/usr/bin/swaybg", "-o", "DP-3", "-c", "#336699"}}};
  world_.anyAnswer["swaymsg"] = {};
  SwayBackend backend(world_.tools, [&](const std::string& name) {
    EXPECT_EQ(name, "swaybg");
    return running;
  });
  EXPECT_FALSE(backend.ShowsOurs());
  const auto before = backend.Remember();
  running = {{9, {"swaybg", "-o", "*", "-i", ours_, "-m", "tile"}}};
  EXPECT_TRUE(backend.ShowsOurs());
  EXPECT_TRUE(backend.Restore(before));
  EXPECT_TRUE(world_.Ran({"swaymsg", "output", "eDP-1", "bg", "/usr/a.png", "fill"}));
  EXPECT_TRUE(world_.Ran({"swaymsg", "output", "DP-2", "bg", "/usr/b.png", "tile"}));
  EXPECT_TRUE(world_.Ran({"swaymsg", "output", "DP-3", "bg", "#336699", "solid_color"}));
}

TEST_F(CommandedBackend, Another_compositor_s_background_program_is_ours_alone_and_replaced_without_a_gap) {
  world_.variables["WAYLAND_DISPLAY"] = "wayland-1";
  std::vector<RunningProcess> running = {{5, {"swaybg", "-i", "/usr/user.png"}}};
  std::vector<std::string> acts;
  int next = 10;
  SwaybgBackend backend(
      world_.tools, [&](const std::string&) { return running; },
      [&](const Arguments& arguments) {
        running.push_back({next++, arguments});
        acts.push_back("start " + arguments[4]);
        return true;
      },
      [&](int process) {
        std::erase_if(running, [&](const RunningProcess& each) { return each.number == process; });
        acts.push_back("end " + std::to_string(process));
      },
      [&] { acts.push_back("settle"); });
  const std::string second = world_.tools.folder + "/wallpaper-B.bmp";
  EXPECT_TRUE(backend.Set(ours_, centered));
  EXPECT_TRUE(backend.Set(second, centered));
  EXPECT_TRUE(backend.Restore({}));
  EXPECT_THAT(acts, ElementsAre("start " + ours_, "settle", "start " + second, "settle", "end 10", "end 11"));
  EXPECT_FALSE(backend.ShowsOurs());
}

// The picture that a test's drawing gives out.
std::string DrawnFor(const std::string& file, WallpaperMode mode, const MonitorPlace& output) {
  return file + "." + output.name + "." + std::to_string(output.size.width) + "x" +
         std::to_string(output.size.height) + (mode == tiled ? ".tiled" : "");
}

TEST_F(CommandedBackend, Hyprpaper_gets_a_finished_picture_for_each_monitor) {
  world_.answers[{"hyprctl", "monitors"}] = {
      0,
      "Monitor eDP-1 (ID 0):\n\t1920x1080@60.00 at 0x0\n\tdescription: 1x1\n\nMonitor DP-2 (ID "
      "1):\n\t2560x1440@60.0 "
      "at 1920x0\n"};
  world_.anyAnswer["hyprctl"] = {0, "ok\n"};
  HyprpaperBackend backend(world_.tools, DrawnFor);
  EXPECT_TRUE(backend.Set("/w.bmp", tiled));
  EXPECT_TRUE(world_.Ran({"hyprctl", "hyprpaper", "preload", "/w.bmp.eDP-1.1920x1080.tiled"}));
  EXPECT_TRUE(world_.Ran({"hyprctl", "hyprpaper", "wallpaper", "eDP-1,/w.bmp.eDP-1.1920x1080.tiled"}));
  EXPECT_TRUE(world_.Ran({"hyprctl", "hyprpaper", "wallpaper", "DP-2,/w.bmp.DP-2.2560x1440.tiled"}));
}

TEST_F(CommandedBackend, Hyprpaper_gets_back_what_each_monitor_had) {
  world_.answers[{"hyprctl", "hyprpaper", "listactive"}] = {0, "eDP-1 = /usr/a b.png\nDP-2 = /usr/c.png\n"};
  world_.anyAnswer["hyprctl"] = {0, "ok\n"};
  HyprpaperBackend backend(world_.tools, DrawnFor);
  EXPECT_FALSE(backend.ShowsOurs());
  EXPECT_TRUE(backend.Restore(backend.Remember()));
  EXPECT_TRUE(world_.Ran({"hyprctl", "hyprpaper", "wallpaper", "eDP-1,/usr/a b.png"}));
  EXPECT_TRUE(world_.Ran({"hyprctl", "hyprpaper", "wallpaper", "DP-2,/usr/c.png"}));
}

TEST_F(CommandedBackend, Hyprpaper_that_does_not_run_has_taken_nothing) {
  world_.answers[{"hyprctl", "monitors"}] = {0, "Monitor eDP-1 (ID 0):\n\t1920x1080@60.00 at 0x0\n"};
  world_.anyAnswer["hyprctl"] = {0, "Couldn't connect to /tmp/hypr/.hyprpaper.sock. (3)\n"};
  EXPECT_FALSE(HyprpaperBackend(world_.tools, DrawnFor).Set("/w.bmp", tiled));
}

TEST_F(CommandedBackend, Swww_is_spoken_to_under_the_name_that_runs) {
  const std::string status = "eDP-1: 1920x1080, scale: 1, currently displaying: image: /usr/a b.png\n";
  world_.answers[{"swww", "query"}] = {0, status};
  world_.anyAnswer["swww"] = {};
  SwwwBackend backend(world_.tools, DrawnFor);
  EXPECT_TRUE(backend.Set("/w.bmp", stretched));
  EXPECT_TRUE(
      world_.Ran({"swww", "img", "-o", "eDP-1", "--transition-type", "none", "/w.bmp.eDP-1.1920x1080"}));
  EXPECT_TRUE(backend.Restore(backend.Remember()));
  EXPECT_TRUE(world_.Ran({"swww", "img", "-o", "eDP-1", "--transition-type", "none", "/usr/a b.png"}));
  world_.answers[{"awww", "query"}] = {0, ": " + status};
  world_.anyAnswer["awww"] = {};
  EXPECT_TRUE(backend.Set("/w.bmp", stretched));
  EXPECT_TRUE(
      world_.Ran({"awww", "img", "-o", "eDP-1", "--transition-type", "none", "/w.bmp.eDP-1.1920x1080"}));
}

TEST_F(CommandedBackend, Lxde_s_file_manager_gets_the_path_as_an_argument_and_the_profile_of_the_session) {
  TemporaryFolder config;
  world_.variables["XDG_CONFIG_HOME"] = config.Path();
  world_.anyAnswer["pcmanfm"] = {};
  PcmanfmBackend backend(world_.tools);
  EXPECT_TRUE(backend.Set("/a b'.bmp", tiled));
  EXPECT_TRUE(
      world_.Ran({"pcmanfm", "--profile=LXDE", "--wallpaper-mode=tile", "--set-wallpaper=/a b'.bmp"}));
  world_.variables["DESKTOP_SESSION"] = "lubuntu";
  Put(config / "pcmanfm/lubuntu/desktop-items-0.conf", "[*]\nwallpaper_mode=crop\nwallpaper=/usr/a.png\n");
  const auto before = backend.Remember();
  EXPECT_TRUE(backend.Restore(before));
  EXPECT_TRUE(
      world_.Ran({"pcmanfm", "--profile=lubuntu", "--wallpaper-mode=crop", "--set-wallpaper=/usr/a.png"}));
  Put(config / "pcmanfm/lubuntu/desktop-items-0.conf", "[*]\nwallpaper=" + ours_ + "\n");
  EXPECT_TRUE(backend.ShowsOurs());
  EXPECT_TRUE(backend.Restore({}));
  EXPECT_TRUE(world_.Ran({"pcmanfm", "--profile=lubuntu", "--wallpaper-mode=color"}));
}

TEST_F(CommandedBackend, Plasma_is_not_started_where_it_does_not_run) {
  PlasmaBackend backend(world_.tools);
  EXPECT_FALSE(backend.Set(ours_, centered));
  EXPECT_EQ(backend.Remember(), std::nullopt);
  EXPECT_TRUE(world_.bus.calls.empty());
}

TEST_F(CommandedBackend, Plasma_has_taken_it_when_a_desktop_says_so) {
  world_.bus.owners = {"org.kde.plasmashell"};
  std::string printed = "2";
  world_.bus.answer = [&](const BusCall&) { return std::vector<BusValue>{{printed}}; };
  PlasmaBackend backend(world_.tools);
  EXPECT_TRUE(backend.Set(ours_, centered));
  EXPECT_EQ(world_.bus.calls.back().method, "evaluateScript");
  printed = "0";
  EXPECT_FALSE(backend.Set(ours_, centered));
}

TEST_F(CommandedBackend, No_text_can_end_a_literal_of_a_script) {
  EXPECT_EQ(ScriptLiteral("a\"b'c\\d\ne</f"), "\"a\\u0022b\\u0027c\\u005cd\\u000ae\\u003c/f\"");
}

TEST_F(CommandedBackend, Deepin_is_told_each_monitor_under_the_name_that_its_service_has) {
  for (const std::string service : {"org.deepin.dde.Appearance1", "com.deepin.daemon.Appearance"}) {
    world_.bus.owners = {service};
    world_.bus.calls.clear();
    world_.bus.answer = [](const BusCall&) { return std::vector<BusValue>(); };
    DeepinBackend backend(world_.tools, [] { return Arguments{"eDP-1", "DP-2"}; });
    EXPECT_TRUE(backend.Set(ours_, centered));
    ASSERT_EQ(world_.bus.calls.size(), 2U);
    EXPECT_EQ(world_.bus.calls[0].interface, service);
    EXPECT_EQ(world_.bus.calls[0].method, "SetMonitorBackground");
    EXPECT_EQ(Text(world_.bus.calls[0].arguments[0]), "eDP-1");
    EXPECT_EQ(Text(world_.bus.calls[1].arguments[0]), "DP-2");
    EXPECT_EQ(Text(world_.bus.calls[1].arguments[1]), ours_);
  }
}

TEST_F(CommandedBackend, A_portal_without_this_interface_is_not_asked_to_set_anything) {
  PortalBackend backend(world_.tools);
  EXPECT_FALSE(backend.Set(ours_, centered));
  ASSERT_EQ(world_.bus.calls.size(), 1U);
  EXPECT_EQ(world_.bus.calls[0].method, "Get");
}

TEST_F(CommandedBackend, The_portal_gets_the_open_file) {
  TemporaryFolder folder;
  Put(folder / "w.bmp", "picture");
  std::string content;
  world_.bus.answer = [&](const BusCall& call) {
    if (call.method == "SetWallpaperFile") {
      char bytes[16] = {};
      const auto* file = std::get_if<BusFile>(&call.arguments.at(1).value);
      if (file && pread(file->descriptor, bytes, sizeof bytes - 1, 0) > 0) content = bytes;
    }
    return std::vector<BusValue>{{std::uint32_t{1}}};
  };
  EXPECT_TRUE(PortalBackend(world_.tools).Set(folder / "w.bmp", centered));
  EXPECT_EQ(content, "picture");
}

}  // namespace
}  // namespace lumidex
