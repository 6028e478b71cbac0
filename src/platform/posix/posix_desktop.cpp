#include "platform/posix/posix_desktop.h"

#include <vector>

#include "platform/posix/start_process.h"

namespace lumidex {
namespace {

// The numbers that the calls themselves answer.
constexpr std::int32_t success = 0;
constexpr std::int32_t fileNotFound = 2;
constexpr std::int32_t accessDenied = 5;
constexpr std::int32_t invalidHandle = 6;
constexpr std::int32_t invalidParameter = 87;
constexpr std::int32_t moreData = 234;

}  // namespace

std::int32_t PosixDesktop::RegOpenKeyExA(RegistryKey root, const std::string& path, std::uint32_t,
                                         RegistryKey& key) {
  if (root != HKEY_CURRENT_USER) return fileNotFound;
  key = ++lastKey_;
  open_[key] = path;
  return success;
}

std::int32_t PosixDesktop::RegSetValueExA(RegistryKey key, const std::string& name, std::uint32_t type,
                                          const std::string& bytes) {
  const auto open = open_.find(key);
  if (open == open_.end()) return invalidHandle;
  if (type != REG_SZ) return invalidParameter;
  return store_.SetValue(open->second, name, bytes) ? success : accessDenied;
}

std::int32_t PosixDesktop::RegQueryValueExA(RegistryKey key, const std::string& name, std::uint32_t& type,
                                            std::string& bytes) {
  const auto open = open_.find(key);
  if (open == open_.end()) return invalidHandle;
  const auto found = store_.Value(open->second, name);
  if (!found) return fileNotFound;
  if (found->size() > bytes.size()) return moreData;
  type = REG_SZ;
  bytes = *found;
  return success;
}

std::int32_t PosixDesktop::RegCloseKey(RegistryKey key) {
  return open_.erase(key) == 1 ? success : invalidHandle;
}

WallpaperMode PosixDesktop::ChosenMode() const {
  const auto value = [this](const char* name) {
    return store_.Value("Control Panel\\Desktop", name).value_or("");
  };
  if (value("WallpaperStyle") == "2") return WallpaperMode::Stretched;
  return value("TileWallpaper") == "1" ? WallpaperMode::Tiled : WallpaperMode::Centered;
}

bool PosixDesktop::SystemParametersInfoA(unsigned action, unsigned, const std::string& text, unsigned) {
  if (!services_ || action != SPI_SETDESKWALLPAPER || !services_->HasWallpaper()) return false;
  if (text.empty()) {
    services_->ClearWallpaper();
  } else {
    services_->SetWallpaper(text, ChosenMode());
  }
  return true;
}

void PosixDesktop::ShowDisplaySettings() {
  // The first of the desktops' own that is there; with none of them nothing opens.
  static const std::vector<std::string> tools[] = {{"gnome-control-center", "display"},
                                                   {"systemsettings", "kcm_kscreen"},
                                                   {"xfce4-display-settings"},
                                                   {"mate-display-properties"},
                                                   {"cinnamon-settings", "display"},
                                                   {"lxqt-config-monitor"},
                                                   {"lxrandr"}};
  for (const auto& tool : tools) {
    if (StartDetached(tool) == 0) return;
  }
}

void PosixDesktop::KeepScreenAwake(bool awake) {
  if (services_) services_->KeepScreenAwake(awake);
}

}  // namespace lumidex
