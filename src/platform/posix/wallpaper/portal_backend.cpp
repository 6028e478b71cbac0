#include "platform/posix/wallpaper/portal_backend.h"

#include <fcntl.h>
#include <unistd.h>

namespace lumidex {

bool PortalBackend::Set(const std::string& file, WallpaperMode) {
  constexpr const char* service = "org.freedesktop.portal.Desktop";
  constexpr const char* path = "/org/freedesktop/portal/desktop";
  constexpr const char* interface = "org.freedesktop.portal.Wallpaper";
  // Portals without this interface are common.
  const auto version =
      tools_.bus.Call({service, path, "org.freedesktop.DBus.Properties", "Get", {{interface}, {"version"}}});
  if (!version) return false;
  const int descriptor = open(file.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return false;
  BusDictionary options;
  options["show-preview"] = {false};
  options["set-on"] = {std::string("background")};
  const auto answer = tools_.bus.Call(
      {service, path, interface, "SetWallpaperFile", {{std::string()}, {BusFile{descriptor}}, {options}}});
  close(descriptor);
  return answer.has_value();
}

}  // namespace lumidex
