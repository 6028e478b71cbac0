#include "platform/headless/memory_desktop.h"

#include "base/text.h"

namespace lumidex {
namespace {

// The numbers that the calls themselves answer.
constexpr std::int32_t success = 0;
constexpr std::int32_t fileNotFound = 2;
constexpr std::int32_t accessDenied = 5;
constexpr std::int32_t invalidHandle = 6;
constexpr std::int32_t moreData = 234;

// The rights to read and to set values, which KEY_READ_WRITE holds too.
constexpr std::uint32_t mayQuery = 1, maySet = 2;

// A value as a person reads it.
std::string Shown(std::uint32_t type, std::string bytes) {
  if (type != REG_SZ) return Number(static_cast<std::int64_t>(bytes.size())) + " bytes";
  if (bytes.ends_with('\0')) bytes.pop_back();
  return bytes;
}

}  // namespace

const std::set<std::string>& MemoryDesktop::Calls() {
  static const std::set<std::string> calls{"RegOpenKeyExA", "RegSetValueExA", "RegQueryValueExA",
                                           "RegCloseKey", "SystemParametersInfoA"};
  return calls;
}

bool MemoryDesktop::HoldsValues(const std::string& path) const {
  const auto first = registry.lower_bound(path + "\\");
  return first != registry.end() && first->first.starts_with(path + "\\");
}

std::int32_t MemoryDesktop::RegOpenKeyExA(RegistryKey root, const std::string& path, std::uint32_t access,
                                          RegistryKey& key) {
  const bool isUsers = root == HKEY_CURRENT_USER;
  log_.Add(std::string("RegOpenKeyExA ") + (isUsers ? "HKEY_CURRENT_USER " : "HKEY_LOCAL_MACHINE ") + path);
  lastAccess = access;
  if (failing.contains("RegOpenKeyExA") || (!isUsers && !HoldsValues(path))) return fileNotFound;
  key = ++lastKey_;
  open_[key] = {path, access};
  return success;
}

std::int32_t MemoryDesktop::RegSetValueExA(RegistryKey key, const std::string& name, std::uint32_t type,
                                           const std::string& bytes) {
  log_.Add("RegSetValueExA " + name + " = " + Shown(type, bytes));
  const auto open = open_.find(key);
  if (open == open_.end()) return invalidHandle;
  if (failing.contains("RegSetValueExA") || (open->second.access & maySet) == 0) return accessDenied;
  registry[open->second.path + "\\" + name] = {type, bytes};
  return success;
}

std::int32_t MemoryDesktop::RegQueryValueExA(RegistryKey key, const std::string& name, std::uint32_t& type,
                                             std::string& bytes) {
  log_.Add("RegQueryValueExA " + name);
  const auto open = open_.find(key);
  if (open == open_.end()) return invalidHandle;
  if (failing.contains("RegQueryValueExA") || (open->second.access & mayQuery) == 0) return accessDenied;
  const auto found = registry.find(open->second.path + "\\" + name);
  if (found == registry.end()) return fileNotFound;
  if (found->second.bytes.size() > bytes.size()) return moreData;
  type = found->second.type;
  bytes = found->second.bytes;
  return success;
}

std::int32_t MemoryDesktop::RegCloseKey(RegistryKey key) {
  log_.Add("RegCloseKey");
  if (failing.contains("RegCloseKey")) return accessDenied;
  return open_.erase(key) == 1 ? success : invalidHandle;
}

bool MemoryDesktop::SystemParametersInfoA(unsigned action, unsigned parameter, const std::string& text,
                                          unsigned flags) {
  log_.Add("SystemParametersInfoA " + Number(static_cast<std::int64_t>(action)) + ", " +
           Number(static_cast<std::int64_t>(parameter)) + ", \"" + text + "\", " +
           Number(static_cast<std::int64_t>(flags)));
  if (failing.contains("SystemParametersInfoA")) return false;
  if (action == SPI_SETDESKWALLPAPER) wallpaper = text;
  return true;
}

void MemoryDesktop::ShowDisplaySettings() {
  log_.Add("ShowDisplaySettings");
}

}  // namespace lumidex
