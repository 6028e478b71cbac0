#pragma once
// The small services as tests need them: they keep what they are told and write it into the call log.

#include <map>

#include "platform/headless/call_log.h"
#include "ports/file_system.h"
#include "ports/services.h"

namespace lumidex {

class ScriptedProcess final : public Process {
 public:
  std::string ExecutableFolder() const override { return executableFolder; }
  std::string CommandLine() const override { return commandLine; }
  bool HasPreviousInstance() override { return hasPreviousInstance; }

  std::string executableFolder;
  std::string commandLine;
  bool hasPreviousInstance = false;
};

class MemoryClipboard final : public Clipboard {
 public:
  explicit MemoryClipboard(CallLog& log) : log_(log) {}
  void Clear() override;
  void SetText(const std::string& text) override;
  void SetPicture(const Picture& picture) override;
  std::string Text() const override { return text_; }
  const Picture& GetPicture() const { return picture_; }

 private:
  CallLog& log_;
  std::string text_;
  Picture picture_;
};

class MemoryDesktop final : public Desktop {
 public:
  explicit MemoryDesktop(CallLog& log) : log_(log) {}
  std::int32_t RegOpenKeyExA(RegistryKey root, const std::string& path, RegistryKey& key) override;
  std::int32_t RegSetValueExA(RegistryKey key, const std::string& name, const std::string& value) override;
  std::int32_t RegQueryValueExA(RegistryKey key, const std::string& name, std::string& value) override;
  std::int32_t RegCloseKey(RegistryKey key) override;
  bool SystemParametersInfoA(unsigned action, unsigned parameter, const std::string& text,
                             unsigned flags) override;
  void ShowDisplaySettings() override;

  // The store, values by "path\name"; the path is that of the key, without its root.
  std::map<std::string, std::string> registry;
  // False makes every call fail.
  bool works = true;
  std::string wallpaper;

 private:
  CallLog& log_;
  std::map<RegistryKey, std::string> open_;
  RegistryKey lastKey_ = 0x100;
};

class MemoryTray final : public Tray {
 public:
  explicit MemoryTray(CallLog& log) : log_(log) {}
  bool IsAvailable() const override { return isAvailable; }
  bool Shell_NotifyIconA(unsigned action, const TrayIconRecord& record) override;

  bool isAvailable = true;
  // The icon that is shown; nothing when there is none.
  std::optional<TrayIconRecord> icon;

 private:
  CallLog& log_;
};

class MemoryShell final : public Shell {
 public:
  explicit MemoryShell(CallLog& log) : log_(log) {}
  int ShellExecuteA(const std::string& verb, const std::string& file, const std::string& arguments,
                    const std::string& directory, int show) override;
  void StartProgram(const std::string& command) override;

  int executeAnswer = 33;
  // False makes StartProgram raise FileNotFound.
  bool programsAreThere = true;

 private:
  CallLog& log_;
};

class MemorySettingsStore final : public SettingsStore {
 public:
  explicit MemorySettingsStore(CallLog& log) : log_(log) {}
  std::string GetSetting(const std::string& section, const std::string& key,
                         const std::string& preset) const override;
  void SaveSetting(const std::string& section, const std::string& key, const std::string& value) override;

 private:
  CallLog& log_;
  std::map<std::pair<std::string, std::string>, std::string> values_;
};

// Decodes with the program's own decoders.
class OpeningPictureLoader final : public PictureLoader {
 public:
  OpeningPictureLoader(const FileSystem& files, CallLog& log) : files_(files), log_(log) {}
  Picture LoadPicture(const std::string& path) override;

 private:
  const FileSystem& files_;
  CallLog& log_;
};

class FixedFolders final : public SpecialFolders {
 public:
  std::string Desktop() const override { return desktop; }
  std::string Documents() const override { return documents; }
  std::string Favorites() const override { return favorites; }

  std::string desktop, documents, favorites;
};

class MemoryBrowser final : public Browser {
 public:
  explicit MemoryBrowser(CallLog& log) : log_(log) {}
  void Navigate(const std::string& address) override;

 private:
  CallLog& log_;
};

}  // namespace lumidex
