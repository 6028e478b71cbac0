#pragma once
// The ways of the desktop that runs, over its real programs and services.

#include <memory>
#include <vector>

#include "platform/posix/wallpaper/backend.h"

namespace lumidex {

// In the order in which they are to be tried; `tools` must stay.
std::vector<std::unique_ptr<WallpaperBackend>> MakeWallpaperBackends(const DesktopTools& tools);

// Where the program keeps its own wallpaper files.
std::string WallpaperFolder(const Environment& environment);

}  // namespace lumidex
