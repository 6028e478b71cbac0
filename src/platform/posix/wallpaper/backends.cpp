#include "platform/posix/wallpaper/backends.h"

#include <chrono>
#include <csignal>
#include <thread>

#include "platform/posix/posix_file_system.h"
#include "platform/posix/start_process.h"
#include "platform/posix/wallpaper/canvas_backends.h"
#include "platform/posix/wallpaper/canvas_file.h"
#include "platform/posix/wallpaper/deepin_backend.h"
#include "platform/posix/wallpaper/desktop_choice.h"
#include "platform/posix/wallpaper/pcmanfm_backends.h"
#include "platform/posix/wallpaper/plasma_backend.h"
#include "platform/posix/wallpaper/portal_backend.h"
#include "platform/posix/wallpaper/root_pixmap_backend.h"
#include "platform/posix/wallpaper/settings_backend.h"
#include "platform/posix/wallpaper/sway_backend.h"
#include "platform/posix/wallpaper/xfconf_backend.h"
#include "platform/posix/x11/x_screen.h"
#include "ports/open_picture.h"

namespace lumidex {
namespace {

// None where there is no X server.
std::vector<std::string> MonitorNames(const DesktopTools& tools) {
  std::vector<std::string> names;
  const XScreen screen(tools.environment("DISPLAY"));
  if (!screen.IsOpen()) return names;
  for (const MonitorPlace& monitor : screen.Monitors()) {
    if (!monitor.name.empty()) names.push_back(monitor.name);
  }
  return names;
}

std::unique_ptr<WallpaperBackend> MakeSwaybg(const DesktopTools& tools) {
  constexpr auto untilShown = std::chrono::seconds(1);
  return std::make_unique<SwaybgBackend>(
      tools, RunningProcesses,
      [](const std::vector<std::string>& arguments) { return StartDetached(arguments) == 0; },
      [](int process) { kill(process, SIGTERM); }, [untilShown] { std::this_thread::sleep_for(untilShown); });
}

std::unique_ptr<WallpaperBackend> Make(WallpaperWay way, const DesktopTools& tools) {
  const auto monitors = [&tools] { return MonitorNames(tools); };
  switch (way) {
    case WallpaperWay::GnomeSettings:
      return std::make_unique<SettingsBackend>(tools, gnomeSchema);
    case WallpaperWay::CinnamonSettings:
      return std::make_unique<SettingsBackend>(tools, cinnamonSchema);
    case WallpaperWay::MateSettings:
      return std::make_unique<SettingsBackend>(tools, mateSchema);
    case WallpaperWay::DeepinSettings:
      return std::make_unique<DeepinBackend>(tools, monitors);
    case WallpaperWay::Xfconf:
      return std::make_unique<XfconfBackend>(tools, monitors);
    case WallpaperWay::PlasmaScript:
      return std::make_unique<PlasmaBackend>(tools);
    case WallpaperWay::PcmanfmQt:
      return std::make_unique<PcmanfmQtBackend>(tools);
    case WallpaperWay::Pcmanfm:
      return std::make_unique<PcmanfmBackend>(tools);
    case WallpaperWay::Swaymsg:
      return std::make_unique<SwayBackend>(tools, RunningProcesses);
    case WallpaperWay::Swaybg:
      return MakeSwaybg(tools);
    case WallpaperWay::Hyprpaper:
      return std::make_unique<HyprpaperBackend>(tools, DrawWallpaperFile);
    case WallpaperWay::Swww:
      return std::make_unique<SwwwBackend>(tools, DrawWallpaperFile);
    case WallpaperWay::RootPixmap:
      return std::make_unique<RootPixmapBackend>(
          tools, [](const std::string& path) { return OpenPicture(PosixFileSystem(), path); });
    case WallpaperWay::Portal:
      return std::make_unique<PortalBackend>(tools);
  }
  return nullptr;
}

}  // namespace

std::vector<std::unique_ptr<WallpaperBackend>> MakeWallpaperBackends(const DesktopTools& tools) {
  std::vector<std::unique_ptr<WallpaperBackend>> backends;
  for (const WallpaperWay way : WallpaperWays(tools.environment)) backends.push_back(Make(way, tools));
  return backends;
}

std::string WallpaperFolder(const Environment& environment) {
  return DataHome(environment) + "/Lumidex/wallpaper";
}

}  // namespace lumidex
