#pragma once
// Drawn wallpapers as files.

#include "platform/posix/wallpaper/canvas.h"

namespace lumidex {

// The wallpaper of one output as a PNG file beside `file`, under its name with the output's behind it:
// "wallpaper-A.bmp" gives "wallpaper-A-eDP-1.png". Its path, empty when that failed.
std::string DrawWallpaperFile(const std::string& file, WallpaperMode mode, const MonitorPlace& output);

}  // namespace lumidex
