#pragma once
// LXQt and LXDE, whose file managers draw the desktop and keep its picture in files of their own.

#include "platform/posix/wallpaper/backend.h"

namespace lumidex {

// Spoken to over the bus.
class PcmanfmQtBackend final : public WallpaperBackend {
 public:
  explicit PcmanfmQtBackend(const DesktopTools& tools) : tools_(tools) {}
  std::string Name() const override { return "pcmanfm-qt"; }
  bool ShowsOurs() override;
  std::optional<std::string> Remember() override;
  bool Set(const std::string& file, WallpaperMode mode) override;
  bool Restore(const std::optional<std::string>& remembered) override;

 private:
  bool Tell(const std::string& file, const std::string& mode) const;
  std::string SettingsFile() const;

  const DesktopTools& tools_;
};

// Spoken to by its program.
class PcmanfmBackend final : public WallpaperBackend {
 public:
  explicit PcmanfmBackend(const DesktopTools& tools) : tools_(tools) {}
  std::string Name() const override { return "pcmanfm"; }
  bool ShowsOurs() override;
  std::optional<std::string> Remember() override;
  bool Set(const std::string& file, WallpaperMode mode) override;
  bool Restore(const std::optional<std::string>& remembered) override;

 private:
  bool Tell(const std::string& file, const std::string& mode) const;
  // The session's profile, which distributions rename.
  std::string Profile() const;
  std::string SettingsFile() const;

  const DesktopTools& tools_;
};

}  // namespace lumidex
