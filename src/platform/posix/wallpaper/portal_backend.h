#pragma once
// The desktop portal, the last resort: it knows neither modes nor what is shown, nor how to take a picture
// away.

#include "platform/posix/wallpaper/backend.h"

namespace lumidex {

class PortalBackend final : public WallpaperBackend {
 public:
  explicit PortalBackend(const DesktopTools& tools) : tools_(tools) {}
  std::string Name() const override { return "portal"; }
  bool ShowsOurs() override { return false; }
  std::optional<std::string> Remember() override { return {}; }
  bool Set(const std::string& file, WallpaperMode mode) override;
  bool Restore(const std::optional<std::string>&) override { return false; }

 private:
  const DesktopTools& tools_;
};

}  // namespace lumidex
