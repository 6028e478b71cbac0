#pragma once
// The registry calls, over a store of the user's own. The calls that change the desktop itself need to know
// which one runs; here they answer that they failed.

#include <map>

#include "platform/posix/environment.h"
#include "platform/posix/ini_file.h"
#include "ports/services.h"

namespace lumidex {

class PosixDesktop : public Desktop {
 public:
  explicit PosixDesktop(const Environment& environment = ReadEnvironment)
      : store_(ConfigHome(environment) + "/Lumidex/registry.ini") {}

  // Every key of HKEY_CURRENT_USER exists; of HKEY_LOCAL_MACHINE none does.
  std::int32_t RegOpenKeyExA(RegistryKey root, const std::string& path, std::uint32_t access,
                             RegistryKey& key) override;
  // The store is for texts: other types are refused.
  std::int32_t RegSetValueExA(RegistryKey key, const std::string& name, std::uint32_t type,
                              const std::string& bytes) override;
  std::int32_t RegQueryValueExA(RegistryKey key, const std::string& name, std::uint32_t& type,
                                std::string& bytes) override;
  std::int32_t RegCloseKey(RegistryKey key) override;
  bool SystemParametersInfoA(unsigned, unsigned, const std::string&, unsigned) override { return false; }
  void ShowDisplaySettings() override;

 private:
  IniFile store_;
  std::map<RegistryKey, std::string> open_;
  RegistryKey lastKey_ = 0;
};

}  // namespace lumidex
