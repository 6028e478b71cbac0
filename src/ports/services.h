#pragma once
// The small services: clock, process, clipboard, desktop, tray, shell, settings store, picture loader,
// special folders, browser.

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "pictures/picture.h"
#include "ports/window_control.h"

namespace lumidex {

struct DateTime {
  int year = 2000, month = 1, day = 1, hour = 0, minute = 0, second = 0;
};

class Clock {
 public:
  virtual ~Clock() = default;
  // Local time of day in seconds since midnight, with fractions; falls back to 0 at midnight.
  virtual double TimeOfDay() const = 0;
  virtual DateTime Now() const = 0;
};

class Process {
 public:
  virtual ~Process() = default;
  // Folder of the program, where its files are kept; may or may not end in a separator.
  virtual std::string ExecutableFolder() const = 0;
  // The raw command line: one path in double quotes, or empty.
  virtual std::string CommandLine() const = 0;
  virtual bool HasPreviousInstance() = 0;
};

class Clipboard {
 public:
  virtual ~Clipboard() = default;
  virtual void Clear() = 0;
  virtual void SetText(const std::string& text) = 0;
  virtual void SetPicture(const Picture& picture) = 0;
  virtual std::string Text() const = 0;
};

using RegistryKey = std::uintptr_t;
inline constexpr RegistryKey HKEY_CURRENT_USER = 0x80000001;
inline constexpr RegistryKey HKEY_LOCAL_MACHINE = 0x80000002;
inline constexpr unsigned SPI_SETDESKWALLPAPER = 20;

class Desktop {
 public:
  virtual ~Desktop() = default;
  // 0 is success, as the calls have it.
  virtual std::int32_t RegOpenKeyExA(RegistryKey root, const std::string& path, RegistryKey& key) = 0;
  virtual std::int32_t RegSetValueExA(RegistryKey key, const std::string& name, const std::string& value) = 0;
  virtual std::int32_t RegQueryValueExA(RegistryKey key, const std::string& name, std::string& value) = 0;
  virtual std::int32_t RegCloseKey(RegistryKey key) = 0;
  virtual bool SystemParametersInfoA(unsigned action, unsigned parameter, const std::string& text,
                                     unsigned flags) = 0;
  virtual void ShowDisplaySettings() = 0;
};

struct TrayIconRecord {
  WindowHandle window = 0;
  unsigned id = 0;
  unsigned flags = 0;
  unsigned callbackMessage = 0;
  std::string tip;
};

class Tray {
 public:
  virtual ~Tray() = default;
  // Whether an icon of the program stands in a notification area, where the user can reach it.
  virtual bool IsAvailable() const = 0;
  virtual bool Shell_NotifyIconA(unsigned action, const TrayIconRecord& record) = 0;
};

class Shell {
 public:
  virtual ~Shell() = default;
  // Above 32 is success.
  virtual int ShellExecuteA(const std::string& verb, const std::string& file, const std::string& arguments,
                            const std::string& directory, int show) = 0;
  // Raises FileNotFound when the program is not there.
  virtual void StartProgram(const std::string& command) = 0;
};

class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  virtual std::string GetSetting(const std::string& section, const std::string& key,
                                 const std::string& preset) const = 0;
  virtual void SaveSetting(const std::string& section, const std::string& key, const std::string& value) = 0;
};

class PictureLoader {
 public:
  virtual ~PictureLoader() = default;
  // The platform's own loader. Raises FileNotFound or InvalidPicture.
  virtual Picture LoadPicture(const std::string& path) = 0;
};

class SpecialFolders {
 public:
  virtual ~SpecialFolders() = default;
  virtual std::string Desktop() const = 0;
  virtual std::string Documents() const = 0;
  virtual std::string Favorites() const = 0;
};

class Browser {
 public:
  virtual ~Browser() = default;
  virtual void Navigate(const std::string& address) = 0;
};

}  // namespace lumidex
