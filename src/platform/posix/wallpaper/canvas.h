#pragma once
// The wallpaper drawn by ourselves, for desktops that only take finished pixels or lack a mode.

#include <string>
#include <vector>

#include "pictures/picture.h"
#include "platform/posix/monitor_place.h"
#include "platform/posix/wallpaper/backend.h"

namespace lumidex {

// The whole screen in opaque pixels: on each monitor the picture centred in its own size (cut off where it is
// larger), stretched over it, or tiled from its top left corner; black elsewhere. What is transparent in the
// picture is white, as the program shows it. Raises InvalidPicture for a picture without pixels.
Pixels DrawWallpaper(const Picture& picture, WallpaperMode mode, Size screen,
                     const std::vector<MonitorPlace>& monitors);

}  // namespace lumidex
