#pragma once
// The desktop of tests: a registry in memory, the wallpaper as a path, calls that fail when a test wants it.

#include <map>
#include <set>

#include "platform/headless/call_log.h"
#include "ports/services.h"

namespace lumidex {

class MemoryDesktop final : public Desktop {
 public:
  explicit MemoryDesktop(CallLog& log) : log_(log) {}
  // Every key of HKEY_CURRENT_USER exists; of HKEY_LOCAL_MACHINE those that hold a value.
  std::int32_t RegOpenKeyExA(RegistryKey root, const std::string& path, std::uint32_t access,
                             RegistryKey& key) override;
  std::int32_t RegSetValueExA(RegistryKey key, const std::string& name, std::uint32_t type,
                              const std::string& bytes) override;
  std::int32_t RegQueryValueExA(RegistryKey key, const std::string& name, std::uint32_t& type,
                                std::string& bytes) override;
  std::int32_t RegCloseKey(RegistryKey key) override;
  bool SystemParametersInfoA(unsigned action, unsigned parameter, const std::string& text,
                             unsigned flags) override;
  void ShowDisplaySettings() override;
  void KeepScreenAwake(bool awake) override { keepsScreenAwake = awake; }

  struct Value {
    std::uint32_t type = REG_SZ;
    std::string bytes;
  };
  // The store, values by "path\name"; the path is that of the key, without its root.
  std::map<std::string, Value> registry;
  // The rights with which a key was opened last, and how many keys are open.
  std::uint32_t lastAccess = 0;
  std::size_t OpenKeys() const { return open_.size(); }

  // The calls that can fail, by their names, and those that do.
  static const std::set<std::string>& Calls();
  std::set<std::string> failing;
  std::string wallpaper;
  bool keepsScreenAwake = false;

 private:
  struct OpenKey {
    std::string path;
    std::uint32_t access = 0;
  };
  bool HoldsValues(const std::string& path) const;

  CallLog& log_;
  std::map<RegistryKey, OpenKey> open_;
  RegistryKey lastKey_ = 0x100;
};

}  // namespace lumidex
