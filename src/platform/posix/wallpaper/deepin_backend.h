#pragma once
// Deepin: a picture for each monitor, told to a service of the desktop's own; older versions read a settings
// schema.

#include "platform/posix/wallpaper/settings_backend.h"

namespace lumidex {

class DeepinBackend final : public WallpaperBackend {
 public:
  using Monitors = std::function<std::vector<std::string>()>;
  DeepinBackend(const DesktopTools& tools, Monitors monitors)
      : tools_(tools), settings_(tools, deepinSchema), monitors_(std::move(monitors)) {}
  std::string Name() const override { return settings_.Name(); }
  bool ShowsOurs() override { return settings_.ShowsOurs(); }
  std::optional<std::string> Remember() override { return settings_.Remember(); }
  bool Set(const std::string& file, WallpaperMode mode) override;
  bool Restore(const std::optional<std::string>& remembered) override;

 private:
  // False when no such service runs.
  bool TellMonitors(const std::string& file) const;

  const DesktopTools& tools_;
  SettingsBackend settings_;
  Monitors monitors_;
};

}  // namespace lumidex
