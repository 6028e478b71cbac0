#include "platform/posix/desktop_services.h"

#include "platform/posix/wallpaper/backends.h"
#include "platform/posix/wallpaper/desktop_choice.h"
#include "platform/posix/wallpaper/wallpaper_changer.h"
#include "platform/posix/x11/x_suspend.h"

namespace lumidex {
namespace {

enum Kind { wallpaperJob, screenJob };

}  // namespace

DesktopServices::DesktopServices(SessionBus& bus, const Environment& environment)
    : tools_{environment, bus, WallpaperFolder(environment)},
      hasWallpaper_(!WallpaperWays(environment).empty()),
      changer_(std::make_unique<WallpaperChanger>(MakeWallpaperBackends(tools_), tools_.folder)),
      screen_(bus, [this] { return SuspendScreenSaver(tools_.environment); }) {}

DesktopServices::~DesktopServices() = default;

void DesktopServices::SetWallpaper(const std::string& file, WallpaperMode mode) {
  jobs_.Ask(wallpaperJob, [this, file, mode] { changer_->Set(file, mode); });
}

void DesktopServices::ClearWallpaper() {
  jobs_.Ask(wallpaperJob, [this] { changer_->Clear(); });
}

void DesktopServices::KeepScreenAwake(bool awake) {
  jobs_.Ask(screenJob, [this, awake] { screen_.Keep(awake); });
}

}  // namespace lumidex
