#pragma once
// Plain X11: a pixmap behind everything that outlives us, told to others by the two customary properties of
// the root window. Two more of our own say which pixmap is ours and what was there before.

#include "pictures/picture.h"
#include "platform/posix/wallpaper/backend.h"

namespace lumidex {

class RootPixmapBackend final : public WallpaperBackend {
 public:
  // Reads a picture file; raises when it can't.
  using Open = std::function<Picture(const std::string& path)>;
  RootPixmapBackend(const DesktopTools& tools, Open open) : tools_(tools), open_(std::move(open)) {}
  std::string Name() const override { return "root window"; }
  bool ShowsOurs() override;
  // What was there is kept in the server, whose pixmaps it consists of.
  std::optional<std::string> Remember() override { return {}; }
  bool Set(const std::string& file, WallpaperMode mode) override;
  bool Restore(const std::optional<std::string>& remembered) override;

 private:
  const DesktopTools& tools_;
  Open open_;
};

}  // namespace lumidex
