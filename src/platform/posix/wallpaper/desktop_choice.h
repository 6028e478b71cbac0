#pragma once
// Which desktop runs, told from the environment, and how its wallpaper can be changed.

#include <vector>

#include "platform/posix/environment.h"

namespace lumidex {

enum class WallpaperWay {
  GnomeSettings,
  CinnamonSettings,
  MateSettings,
  DeepinSettings,
  Xfconf,
  PlasmaScript,
  PcmanfmQt,
  Pcmanfm,
  Swaymsg,
  Swaybg,
  Hyprpaper,
  Swww,
  RootPixmap,
  Portal
};

// The ways that may work on this desktop, the one of its own first. Empty where there is no desktop.
std::vector<WallpaperWay> WallpaperWays(const Environment& environment);

}  // namespace lumidex
