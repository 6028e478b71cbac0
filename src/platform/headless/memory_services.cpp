#include "platform/headless/memory_services.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "ports/open_picture.h"

namespace lumidex {
namespace {

// The numbers that the calls themselves answer.
constexpr std::int32_t success = 0;
constexpr std::int32_t fileNotFound = 2;
constexpr std::int32_t invalidHandle = 6;

std::string SizeText(const Picture& picture) {
  return picture.IsEmpty() ? "(none)"
                           : Number(picture.GetSize().width) + " x " + Number(picture.GetSize().height);
}

}  // namespace

void MemoryClipboard::Clear() {
  log_.Add("Clipboard.Clear");
  text_.clear();
  picture_ = Picture();
}

void MemoryClipboard::SetText(const std::string& text) {
  log_.Add("Clipboard.SetText " + text);
  text_ = text;
}

void MemoryClipboard::SetPicture(const Picture& picture) {
  log_.Add("Clipboard.SetPicture " + SizeText(picture));
  picture_ = picture;
}

std::int32_t MemoryDesktop::RegOpenKeyExA(RegistryKey root, const std::string& path, RegistryKey& key) {
  log_.Add(std::string("RegOpenKeyExA ") +
           (root == HKEY_CURRENT_USER ? "HKEY_CURRENT_USER" : "HKEY_LOCAL_MACHINE") + " " + path);
  if (!works) return fileNotFound;
  key = ++lastKey_;
  open_[key] = path;
  return success;
}

std::int32_t MemoryDesktop::RegSetValueExA(RegistryKey key, const std::string& name,
                                           const std::string& value) {
  log_.Add("RegSetValueExA " + name + " = " + value);
  const auto open = open_.find(key);
  if (open == open_.end()) return invalidHandle;
  registry[open->second + "\\" + name] = value;
  return success;
}

std::int32_t MemoryDesktop::RegQueryValueExA(RegistryKey key, const std::string& name, std::string& value) {
  log_.Add("RegQueryValueExA " + name);
  const auto open = open_.find(key);
  if (open == open_.end()) return invalidHandle;
  const auto found = registry.find(open->second + "\\" + name);
  if (found == registry.end()) return fileNotFound;
  value = found->second;
  return success;
}

std::int32_t MemoryDesktop::RegCloseKey(RegistryKey key) {
  log_.Add("RegCloseKey");
  return open_.erase(key) == 1 ? success : invalidHandle;
}

bool MemoryDesktop::SystemParametersInfoA(unsigned action, unsigned parameter, const std::string& text,
                                          unsigned flags) {
  log_.Add("SystemParametersInfoA " + Number(static_cast<std::int64_t>(action)) + ", " +
           Number(static_cast<std::int64_t>(parameter)) + ", \"" + text + "\", " +
           Number(static_cast<std::int64_t>(flags)));
  if (works && action == SPI_SETDESKWALLPAPER) wallpaper = text;
  return works;
}

void MemoryDesktop::ShowDisplaySettings() {
  log_.Add("ShowDisplaySettings");
}

bool MemoryTray::Shell_NotifyIconA(unsigned action, const TrayIconRecord& record) {
  static constexpr const char* names[] = {"add", "modify", "delete"};
  log_.Add(std::string("Shell_NotifyIconA ") + (action < 3 ? names[action] : "unknown") + " \"" + record.tip +
           "\"");
  if (!isAvailable || action > 2) return false;
  if (action != 0 && !icon) return false;
  if (action == 2) {
    icon.reset();
  } else {
    icon = record;
  }
  return true;
}

int MemoryShell::ShellExecuteA(const std::string& verb, const std::string& file, const std::string& arguments,
                               const std::string& directory, int show) {
  std::string line = "ShellExecuteA";
  for (const std::string& text : {verb, file, arguments, directory}) line += " \"" + text + "\"";
  log_.Add(line + " " + Number(show));
  return executeAnswer;
}

void MemoryShell::StartProgram(const std::string& command) {
  log_.Add("StartProgram " + command);
  if (!programsAreThere) throw RunTimeError(ErrorNumber::FileNotFound);
}

std::string MemorySettingsStore::GetSetting(const std::string& section, const std::string& key,
                                            const std::string& preset) const {
  const auto found = values_.find({section, key});
  return found == values_.end() ? preset : found->second;
}

void MemorySettingsStore::SaveSetting(const std::string& section, const std::string& key,
                                      const std::string& value) {
  log_.Add("SaveSetting " + section + ", " + key + " = " + value);
  values_[{section, key}] = value;
}

Picture OpeningPictureLoader::LoadPicture(const std::string& path) {
  log_.Add("LoadPicture " + path);
  return OpenPicture(files_, path);
}

void MemoryBrowser::Navigate(const std::string& address) {
  log_.Add("Navigate " + address);
}

}  // namespace lumidex
