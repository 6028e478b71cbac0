#include "platform/posix/wallpaper/deepin_backend.h"

namespace lumidex {

bool DeepinBackend::TellMonitors(const std::string& file) const {
  struct Service {
    const char *name, *path;
  };
  constexpr Service services[] = {{"org.deepin.dde.Appearance1", "/org/deepin/dde/Appearance1"},
                                  {"com.deepin.daemon.Appearance", "/com/deepin/daemon/Appearance"}};
  for (const Service& service : services) {
    if (!tools_.bus.HasOwner(service.name)) continue;
    bool told = false;
    for (const std::string& monitor : monitors_()) {
      // The interface is called as its service.
      told =
          tools_.bus
              .Call({service.name, service.path, service.name, "SetMonitorBackground", {{monitor}, {file}}})
              .has_value() ||
          told;
    }
    return told;
  }
  return false;
}

bool DeepinBackend::Set(const std::string& file, WallpaperMode mode) {
  const bool kept = settings_.Set(file, mode);
  return TellMonitors(file) || kept;
}

bool DeepinBackend::Restore(const std::optional<std::string>& remembered) {
  const bool restored = settings_.Restore(remembered);
  // The service does not look at the schema by itself.
  const std::string address = settings_.ShownPicture();
  if (restored && !address.empty()) TellMonitors(address);
  return restored;
}

}  // namespace lumidex
