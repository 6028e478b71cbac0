#pragma once
// What the running desktop does for the program: the wallpaper, and a screen that stays awake. Everything is
// only asked for here; the desktop's answers are awaited on threads of their own.

#include <chrono>
#include <memory>
#include <string>

#include "platform/posix/background_jobs.h"
#include "platform/posix/screen_awake.h"
#include "platform/posix/wallpaper/backend.h"

namespace lumidex {

class WallpaperChanger;

class DesktopServices {
 public:
  explicit DesktopServices(SessionBus& bus, const Environment& environment = ReadEnvironment);
  ~DesktopServices();
  DesktopServices(const DesktopServices&) = delete;
  DesktopServices& operator=(const DesktopServices&) = delete;

  // False when no desktop is known here.
  bool HasWallpaper() const { return hasWallpaper_; }
  // The file must stay as it is until the desktop has taken it over or another one is set.
  void SetWallpaper(const std::string& file, WallpaperMode mode);
  // Gives back what was there before the first change.
  void ClearWallpaper();
  void KeepScreenAwake(bool awake);

  // To be called before the process ends: lets the last wallpaper come, but does not wait for a desktop that
  // does not answer. The screen is not waited for: what was granted goes with the process.
  void Finish(std::chrono::milliseconds atMost) { wallpaperJobs_.WaitUntilDone(atMost); }

 private:
  DesktopTools tools_;
  bool hasWallpaper_;
  std::unique_ptr<WallpaperChanger> changer_;  // on the thread of its jobs alone
  ScreenAwake screen_;                         // likewise
  // Apart, so that a service that does not answer holds up its own kind only.
  BackgroundJobs wallpaperJobs_, screenJobs_;
};

}  // namespace lumidex
