#pragma once
// The registry calls, over a store of the user's own, and the calls that change the desktop itself.

#include <map>
#include <optional>
#include <set>

#include "platform/posix/desktop_services.h"
#include "platform/posix/environment.h"
#include "platform/posix/ini_file.h"
#include "ports/services.h"

namespace lumidex {

class PosixDesktop : public Desktop {
 public:
  // Without services nothing changes the desktop, and the calls say that they failed.
  explicit PosixDesktop(const Environment& environment = ReadEnvironment, DesktopServices* services = nullptr)
      : environment_(environment),
        services_(services),
        store_(ConfigHome(environment) + "/Lumidex/registry.ini") {}

  // Every key of HKEY_CURRENT_USER exists; of HKEY_LOCAL_MACHINE only the one that tells the
  // program for facts about the system: the running desktop's own, or another that is installed.
  std::int32_t RegOpenKeyExA(RegistryKey root, const std::string& path, std::uint32_t access,
                             RegistryKey& key) override;
  // The store is for texts: other types are refused.
  std::int32_t RegSetValueExA(RegistryKey key, const std::string& name, std::uint32_t type,
                              const std::string& bytes) override;
  std::int32_t RegQueryValueExA(RegistryKey key, const std::string& name, std::uint32_t& type,
                                std::string& bytes) override;
  std::int32_t RegCloseKey(RegistryKey key) override;
  // Only the wallpaper, whose mode stands in the registry. Returns at once: what the desktop answers is
  // awaited elsewhere.
  bool SystemParametersInfoA(unsigned action, unsigned parameter, const std::string& text,
                             unsigned flags) override;
  // The running desktop's own, or another that is installed; with none of them nothing opens.
  void ShowDisplaySettings() override;
  void KeepScreenAwake(bool awake) override;

 private:
  WallpaperMode ChosenMode() const;

  std::optional<std::string> MachinesValue(const std::string& name) const;

  Environment environment_;
  DesktopServices* services_;
  IniFile store_;
  std::map<RegistryKey, std::string> open_;
  std::set<RegistryKey> machineKeys_;
  RegistryKey lastKey_ = 0;
};

}  // namespace lumidex
