#include "platform/posix/posix_desktop.h"

#include "platform/posix/desktop_programs.h"
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

// Where the machine's keys tell the program that shows facts about the system.
constexpr const char* systemInformationKey = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
constexpr const char* systemInformationName = "PATH";

std::string CommandOf(const std::vector<std::string>& arguments) {
  std::string command;
  for (const std::string& argument : arguments) command += (command.empty() ? "" : " ") + argument;
  return command;
}

}  // namespace

std::int32_t PosixDesktop::RegOpenKeyExA(RegistryKey root, const std::string& path, std::uint32_t,
                                         RegistryKey& key) {
  const bool isUsers = root == HKEY_CURRENT_USER;
  if (!isUsers && (root != HKEY_LOCAL_MACHINE || path != systemInformationKey)) return fileNotFound;
  key = ++lastKey_;
  if (!isUsers) {
    machineKeys_.insert(key);
    return success;
  }
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

std::optional<std::string> PosixDesktop::MachinesValue(const std::string& name) const {
  if (name != systemInformationName) return {};
  const auto program = FindDesktopProgram(SystemInformationPrograms(), environment_);
  if (!program) return {};
  return CommandOf(*program);
}

std::int32_t PosixDesktop::RegQueryValueExA(RegistryKey key, const std::string& name, std::uint32_t& type,
                                            std::string& bytes) {
  const auto open = open_.find(key);
  const bool isMachines = machineKeys_.contains(key);
  if (open == open_.end() && !isMachines) return invalidHandle;
  const auto found = isMachines ? MachinesValue(name) : store_.Value(open->second, name);
  if (!found) return fileNotFound;
  if (found->size() > bytes.size()) return moreData;
  type = REG_SZ;
  bytes = *found;
  return success;
}

std::int32_t PosixDesktop::RegCloseKey(RegistryKey key) {
  return open_.erase(key) + machineKeys_.erase(key) == 1 ? success : invalidHandle;
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
  if (const auto program = FindDesktopProgram(DisplaySettingsPrograms(), environment_))
    StartDetached(*program);
}

void PosixDesktop::KeepScreenAwake(bool awake) {
  if (services_) services_->KeepScreenAwake(awake);
}

}  // namespace lumidex
