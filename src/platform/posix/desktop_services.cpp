#include "platform/posix/desktop_services.h"

#include "platform/posix/wallpaper/backends.h"
#include "platform/posix/wallpaper/desktop_choice.h"
#include "platform/posix/wallpaper/wallpaper_changer.h"
#include "platform/posix/x11/x_suspend.h"

namespace lumidex {
namespace {

// Each has jobs of one kind.
constexpr int onlyKind = 0;

}  // namespace

DesktopServices::DesktopServices(SessionBus& bus, const Environment& environment)
    : tools_{environment, bus, WallpaperFolder(environment)},
      hasWallpaper_(!WallpaperWays(environment).empty()),
      changer_(std::make_unique<WallpaperChanger>(MakeWallpaperBackends(tools_), tools_.folder)),
      screen_(bus, [this] { return SuspendScreenSaver(tools_.environment); }) {}

DesktopServices::~DesktopServices() = default;

void DesktopServices::SetWallpaper(const std::string& file, WallpaperMode mode) {
  wallpaperJobs_.Ask(onlyKind, [this, file, mode] { changer_->Set(file, mode); });
}

void DesktopServices::ClearWallpaper() {
  wallpaperJobs_.Ask(onlyKind, [this] { changer_->Clear(); });
}

void DesktopServices::KeepScreenAwake(bool awake) {
  screenJobs_.Ask(onlyKind, [this, awake] { screen_.Keep(awake); });
}

}  // namespace lumidex
