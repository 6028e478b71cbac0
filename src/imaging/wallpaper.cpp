#include "imaging/wallpaper.h"

#include "forms/WPaper2.h"
#include "imaging/save_picture.h"

namespace lumidex {
namespace {

std::string WallpaperFile(const App& app) {
  const char separator = app.platform.files.Separator();
  std::string folder = app.AppPath;
  if (!folder.ends_with(separator)) folder += separator;
  return folder + "Lumidex.bmp";
}

void SetWallpaper(App& app, bool noTile, bool stretch) {
  const std::string path = WallpaperFile(app);
  SavePicture(app, app.WPaper2.Image1.Picture, path);
  ApplyWallpaper(app, path, noTile, stretch);
  app.platform.events.Yield();
}

}  // namespace

void ApplyWallpaper(App& app, std::string path, bool noTile, bool stretch) {
  constexpr unsigned updateProfileAndTellOthers = 3;
  Desktop& desktop = app.platform.desktop;
  RegistryKey key = 0;
  desktop.RegOpenKeyExA(HKEY_CURRENT_USER, "Control Panel\\Desktop", KEY_SET_VALUE, key);
  desktop.RegSetValueExA(key, "TileWallpaper", REG_SZ, noTile ? "0" : "1");
  desktop.RegSetValueExA(key, "WallpaperStyle", REG_SZ, stretch ? "2" : "0");
  desktop.RegCloseKey(key);
  desktop.SystemParametersInfoA(SPI_SETDESKWALLPAPER, 0, path, updateProfileAndTellOthers);
}

void SetWallpaperCentered(App& app) {
  SetWallpaper(app, true, false);
}
void SetWallpaperStretched(App& app) {
  SetWallpaper(app, true, true);
}
void SetWallpaperTiled(App& app) {
  SetWallpaper(app, false, false);
}

void ClearWallpaper(App& app) {
  ApplyWallpaper(app, "", false, false);
  app.platform.events.Yield();
}

}  // namespace lumidex
