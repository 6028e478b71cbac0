#pragma once
// The per-user store of single values, $XDG_CONFIG_HOME/Lumidex/settings.ini.

#include "platform/posix/environment.h"
#include "platform/posix/ini_file.h"
#include "ports/services.h"

namespace lumidex {

class PosixSettingsStore final : public SettingsStore {
 public:
  explicit PosixSettingsStore(const Environment& environment = ReadEnvironment)
      : file_(ConfigHome(environment) + "/Lumidex/settings.ini") {}

  std::string GetSetting(const std::string& section, const std::string& key,
                         const std::string& preset) const override {
    return file_.Value(section, key).value_or(preset);
  }
  // What can't be written is kept for this run, silently.
  void SaveSetting(const std::string& section, const std::string& key, const std::string& value) override {
    file_.SetValue(section, key, value);
  }

 private:
  IniFile file_;
};

}  // namespace lumidex
