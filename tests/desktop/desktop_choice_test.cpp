#include <gmock/gmock.h>

#include <map>

#include "platform/posix/wallpaper/desktop_choice.h"

namespace lumidex {
namespace {

using enum WallpaperWay;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<WallpaperWay> WaysWith(std::map<std::string, std::string> variables) {
  return WallpaperWays([variables = std::move(variables)](const char* name) {
    const auto found = variables.find(name);
    return found == variables.end() ? std::string() : found->second;
  });
}

std::vector<WallpaperWay> WaysOn(const std::string& desktop) {
  return WaysWith({{"XDG_CURRENT_DESKTOP", desktop}, {"DISPLAY", ":0"}});
}

TEST(DesktopChoice, Each_desktop_has_its_own_way_first) {
  EXPECT_EQ(WaysOn("GNOME").front(), GnomeSettings);
  EXPECT_EQ(WaysOn("X-Cinnamon").front(), CinnamonSettings);
  EXPECT_EQ(WaysOn("MATE").front(), MateSettings);
  EXPECT_EQ(WaysOn("XFCE").front(), Xfconf);
  EXPECT_EQ(WaysOn("KDE").front(), PlasmaScript);
  EXPECT_EQ(WaysOn("LXQt").front(), PcmanfmQt);
  EXPECT_EQ(WaysOn("LXDE").front(), Pcmanfm);
  EXPECT_EQ(WaysOn("Deepin").front(), DeepinSettings);
  EXPECT_EQ(WaysOn("DDE").front(), DeepinSettings);
  EXPECT_EQ(WaysOn("sway").front(), Swaymsg);
  EXPECT_EQ(WaysOn("Hyprland").front(), Hyprpaper);
}

TEST(DesktopChoice, The_names_are_compared_without_regard_to_case) {
  EXPECT_EQ(WaysOn("xfce").front(), Xfconf);
  EXPECT_EQ(WaysOn("gnome").front(), GnomeSettings);
}

TEST(DesktopChoice, A_distribution_s_own_name_before_the_desktop_s_changes_nothing) {
  EXPECT_EQ(WaysOn("ubuntu:GNOME").front(), GnomeSettings);
  EXPECT_EQ(WaysOn("GNOME-Classic:GNOME").front(), GnomeSettings);
}

TEST(DesktopChoice, The_more_special_desktop_wins_over_the_one_it_builds_on) {
  EXPECT_THAT(WaysOn("Budgie:GNOME"), ElementsAre(GnomeSettings, Portal));
  EXPECT_EQ(WaysOn("GNOME:X-Cinnamon").front(), CinnamonSettings);
}

TEST(DesktopChoice, Part_of_a_name_is_no_name) {
  EXPECT_EQ(WaysOn("KDEish").front(), RootPixmap);
}

TEST(DesktopChoice, Without_a_name_the_compositor_s_socket_tells) {
  EXPECT_EQ(WaysWith({{"SWAYSOCK", "/run/sway"}, {"WAYLAND_DISPLAY", "wayland-1"}}).front(), Swaymsg);
  EXPECT_EQ(WaysWith({{"HYPRLAND_INSTANCE_SIGNATURE", "x"}, {"WAYLAND_DISPLAY", "wayland-1"}}).front(),
            Hyprpaper);
}

TEST(DesktopChoice, An_unknown_desktop_is_told_by_its_window_system) {
  EXPECT_THAT(WaysWith({{"WAYLAND_DISPLAY", "wayland-0"}, {"DISPLAY", ":0"}}),
              ElementsAre(Swww, Swaybg, Portal));
  EXPECT_THAT(WaysWith({{"DISPLAY", ":0"}}), ElementsAre(RootPixmap, PcmanfmQt, Xfconf, Portal));
  EXPECT_THAT(WaysWith({}), IsEmpty());
}

}  // namespace
}  // namespace lumidex
