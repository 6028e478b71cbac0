#pragma once
// Xfce: one picture for each monitor and workspace, kept by the settings daemon and spoken to over the bus.

#include "platform/posix/wallpaper/backend.h"

namespace lumidex {

class XfconfBackend final : public WallpaperBackend {
 public:
  // `monitors` gives the names of the connected outputs.
  using Monitors = std::function<std::vector<std::string>()>;
  XfconfBackend(const DesktopTools& tools, Monitors monitors)
      : tools_(tools), monitors_(std::move(monitors)) {}
  std::string Name() const override { return "xfce4-desktop"; }
  bool ShowsOurs() override;
  std::optional<std::string> Remember() override;
  bool Set(const std::string& file, WallpaperMode mode) override;
  bool Restore(const std::optional<std::string>& remembered) override;

 private:
  std::optional<BusDictionary> Properties() const;
  // What every picture's properties begin with, "/backdrop/screen0/monitorHDMI-1/workspace0/": those that are
  // there, and the first workspace of each monitor, which a fresh desktop has no properties for yet.
  std::vector<std::string> Places(const BusDictionary& properties) const;
  bool SetProperty(const std::string& name, BusValue value) const;
  bool ResetProperty(const std::string& name) const;

  const DesktopTools& tools_;
  Monitors monitors_;
};

}  // namespace lumidex
