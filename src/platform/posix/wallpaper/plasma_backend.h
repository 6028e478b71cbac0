#pragma once
// KDE Plasma: its shell runs a script over all desktops, that is all screens of all activities.

#include "platform/posix/wallpaper/backend.h"

namespace lumidex {

class PlasmaBackend final : public WallpaperBackend {
 public:
  explicit PlasmaBackend(const DesktopTools& tools) : tools_(tools) {}
  std::string Name() const override { return "plasma"; }
  bool ShowsOurs() override;
  std::optional<std::string> Remember() override;
  bool Set(const std::string& file, WallpaperMode mode) override;
  bool Restore(const std::optional<std::string>& remembered) override;

 private:
  // What the script printed.
  std::optional<std::string> Evaluate(const std::string& script) const;

  const DesktopTools& tools_;
};

// A text as a literal of the script language, in which no text can end the literal.
std::string ScriptLiteral(const std::string& text);

}  // namespace lumidex
