#include "platform/posix/wallpaper/desktop_choice.h"

#include <algorithm>
#include <string_view>

#include "base/text.h"

namespace lumidex {
namespace {

using enum WallpaperWay;

struct Desktop {
  std::vector<std::string_view> names;  // in small letters
  std::vector<WallpaperWay> ways;
};

// The more special first: a desktop that builds on another one names that one too.
const std::vector<Desktop>& Desktops() {
  static const std::vector<Desktop> desktops = {
      {{"budgie"}, {GnomeSettings, Portal}},
      {{"x-cinnamon", "cinnamon"}, {CinnamonSettings}},
      {{"mate"}, {MateSettings}},
      {{"kde"}, {PlasmaScript, Portal}},
      {{"xfce"}, {Xfconf, RootPixmap}},
      {{"lxqt"}, {PcmanfmQt, RootPixmap}},
      {{"lxde"}, {Pcmanfm, RootPixmap}},
      {{"deepin", "dde"}, {DeepinSettings}},
      {{"sway"}, {Swaymsg, Swaybg}},
      {{"hyprland"}, {Hyprpaper, Swww, Swaybg}},
      {{"cosmic", "enlightenment", "moksha"}, {Portal}},
      {{"unity", "pantheon", "gnome-classic", "gnome"}, {GnomeSettings, Portal}},
  };
  return desktops;
}

std::vector<std::string> Items(const std::string& list) {
  std::vector<std::string> items;
  for (std::size_t begin = 0; begin <= list.size();) {
    const auto end = std::min(list.find(':', begin), list.size());
    items.push_back(LCase(list.substr(begin, end - begin)));
    begin = end + 1;
  }
  return items;
}

}  // namespace

std::vector<WallpaperWay> WallpaperWays(const Environment& environment) {
  const auto items = Items(environment("XDG_CURRENT_DESKTOP"));
  for (const Desktop& desktop : Desktops()) {
    for (const std::string_view name : desktop.names) {
      if (std::ranges::find(items, name) != items.end()) return desktop.ways;
    }
  }
  // Compositors that are often started without a session file.
  if (!environment("SWAYSOCK").empty()) return {Swaymsg, Swaybg};
  if (!environment("HYPRLAND_INSTANCE_SIGNATURE").empty()) return {Hyprpaper, Swww, Swaybg};
  if (!environment("WAYLAND_DISPLAY").empty()) return {Swww, Swaybg, Portal};
  if (!environment("DISPLAY").empty()) return {RootPixmap, PcmanfmQt, Xfconf, Portal};
  return {};
}

}  // namespace lumidex
