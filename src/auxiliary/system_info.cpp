#include "auxiliary/system_info.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "core/paths.h"

namespace lumidex {
namespace {

constexpr std::size_t bufferLength = 1024;

// "&h" and the value's characters, last first, as two digits each; its decimal form is that of a signed
// number, as numbers of 32 bits are.
std::string DecimalOf(const std::string& bytes) {
  std::uint32_t number = 0;
  for (std::size_t i = bytes.size(); i-- > 0;) number = number << 8 | static_cast<unsigned char>(bytes[i]);
  return Number(static_cast<std::int64_t>(static_cast<std::int32_t>(number)));
}

// The value of an open key.
bool QueryText(App& app, RegistryKey key, std::string valueName, std::string& text) {
  std::uint32_t type = 0;
  std::string bytes(bufferLength, '\0');
  if (app.platform.desktop.RegQueryValueExA(key, valueName, type, bytes) != 0) return false;
  if (bytes.ends_with('\0')) bytes.pop_back();
  if (type == REG_SZ) text = bytes;
  if (type == REG_DWORD) text = DecimalOf(bytes);
  return true;
}

}  // namespace

bool GetKeyValue(App& app, RegistryKey root, std::string keyName, std::string valueName, std::string& text) {
  text.clear();
  RegistryKey key = 0;
  const bool opened = app.platform.desktop.RegOpenKeyExA(root, keyName, KEY_READ_WRITE, key) == 0;
  const bool found = opened && QueryText(app, key, valueName, text);
  app.platform.desktop.RegCloseKey(key);
  return found;
}

void StartSysInfo(App& app) {
  IgnoreError([&] {
    std::string path;
    if (GetKeyValue(app, HKEY_LOCAL_MACHINE, "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", "PATH", path)) {
      app.platform.shell.StartProgram(path);
      return;
    }
    if (GetKeyValue(app, HKEY_LOCAL_MACHINE, "SOFTWARE\\Microsoft\\Shared Tools Location", "MSINFO", path)) {
      path += "\\MSINFO32.EXE";
      if (FileExists(app, path)) {
        app.platform.shell.StartProgram(path);
        return;
      }
    }
    app.platform.dialogs.MsgBox({"System Information Is Unavailable At This Time"});
  });
}

}  // namespace lumidex
