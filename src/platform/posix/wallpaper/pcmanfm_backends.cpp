#include "platform/posix/wallpaper/pcmanfm_backends.h"

#include <sys/stat.h>

#include <fstream>

#include "platform/posix/wallpaper/lines.h"

namespace lumidex {
namespace {

const char* Mode(WallpaperMode mode) {
  switch (mode) {
    case WallpaperMode::Centered:
      return "center";
    case WallpaperMode::Stretched:
      return "stretch";
    default:
      return "tile";
  }
}

// The first value of a key, whatever group it stands in; empty without one.
std::string ValueIn(const std::string& path, const std::string& key) {
  std::ifstream file(path, std::ios::binary);
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with(key + "=")) return line.substr(key.size() + 1);
  }
  return {};
}

std::optional<std::string> RememberedIn(const std::string& path, const char* pictureKey,
                                        const char* modeKey) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) return {};
  return ValueIn(path, modeKey) + "\n" + ValueIn(path, pictureKey) + "\n";
}

struct Kept {
  std::string mode, picture;
};
Kept Read(const std::string& remembered) {
  auto lines = Lines(remembered);
  lines.resize(2);
  return {lines[0], lines[1]};
}

}  // namespace

std::string PcmanfmQtBackend::SettingsFile() const {
  return ConfigHome(tools_.environment) + "/pcmanfm-qt/lxqt/settings.conf";
}

bool PcmanfmQtBackend::Tell(const std::string& file, const std::string& mode) const {
  constexpr const char* service = "org.pcmanfm.PCManFM";
  // Asked first: started by the call it would be no desktop.
  if (!tools_.bus.HasOwner(service)) return false;
  return tools_.bus
      .Call({service, "/Application", "org.pcmanfm.Application", "setWallpaper", {{file}, {mode}}})
      .has_value();
}

bool PcmanfmQtBackend::ShowsOurs() {
  return tools_.NamesOurs(ValueIn(SettingsFile(), "Wallpaper"));
}

std::optional<std::string> PcmanfmQtBackend::Remember() {
  return RememberedIn(SettingsFile(), "Wallpaper", "WallpaperMode");
}

bool PcmanfmQtBackend::Set(const std::string& file, WallpaperMode mode) {
  return Tell(file, Mode(mode));
}

bool PcmanfmQtBackend::Restore(const std::optional<std::string>& remembered) {
  const Kept kept = Read(remembered.value_or(""));
  return Tell(kept.picture, kept.mode.empty() || kept.picture.empty() ? "none" : kept.mode);
}

std::string PcmanfmBackend::Profile() const {
  const std::string session = tools_.environment("DESKTOP_SESSION");
  const std::string folder = ConfigHome(tools_.environment) + "/pcmanfm/";
  struct stat status {};
  const bool isPlain = !session.empty() && session.find('/') == std::string::npos;
  return isPlain && stat((folder + session).c_str(), &status) == 0 ? session : "LXDE";
}

std::string PcmanfmBackend::SettingsFile() const {
  return ConfigHome(tools_.environment) + "/pcmanfm/" + Profile() + "/desktop-items-0.conf";
}

bool PcmanfmBackend::Tell(const std::string& file, const std::string& mode) const {
  std::vector<std::string> arguments = {"pcmanfm", "--profile=" + Profile(), "--wallpaper-mode=" + mode};
  if (!file.empty()) arguments.push_back("--set-wallpaper=" + file);
  return tools_.Runs(arguments);
}

bool PcmanfmBackend::ShowsOurs() {
  return tools_.NamesOurs(ValueIn(SettingsFile(), "wallpaper"));
}

std::optional<std::string> PcmanfmBackend::Remember() {
  return RememberedIn(SettingsFile(), "wallpaper", "wallpaper_mode");
}

bool PcmanfmBackend::Set(const std::string& file, WallpaperMode mode) {
  return Tell(file, Mode(mode));
}

bool PcmanfmBackend::Restore(const std::optional<std::string>& remembered) {
  const Kept kept = Read(remembered.value_or(""));
  return Tell(kept.picture, kept.mode.empty() || kept.picture.empty() ? "color" : kept.mode);
}

}  // namespace lumidex
