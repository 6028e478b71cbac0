#pragma once
// Compositors' wallpaper services without the three modes: they are given one finished picture for each
// output.

#include "platform/posix/wallpaper/backend.h"
#include "platform/posix/wallpaper/canvas.h"

namespace lumidex {

// Draws the wallpaper of one output and writes it as a PNG file; its path, empty when that failed.
using DrawFile =
    std::function<std::string(const std::string& file, WallpaperMode mode, const MonitorPlace& output)>;

class HyprpaperBackend final : public WallpaperBackend {
 public:
  HyprpaperBackend(const DesktopTools& tools, DrawFile draw) : tools_(tools), draw_(std::move(draw)) {}
  std::string Name() const override { return "hyprpaper"; }
  bool ShowsOurs() override;
  std::optional<std::string> Remember() override;
  bool Set(const std::string& file, WallpaperMode mode) override;
  bool Restore(const std::optional<std::string>& remembered) override;

 private:
  std::vector<MonitorPlace> Outputs() const;
  bool Show(const std::string& output, const std::string& picture) const;

  const DesktopTools& tools_;
  DrawFile draw_;
};

// Also under its newer name, awww.
class SwwwBackend final : public WallpaperBackend {
 public:
  SwwwBackend(const DesktopTools& tools, DrawFile draw) : tools_(tools), draw_(std::move(draw)) {}
  std::string Name() const override { return "swww"; }
  bool ShowsOurs() override;
  std::optional<std::string> Remember() override;
  bool Set(const std::string& file, WallpaperMode mode) override;
  bool Restore(const std::optional<std::string>& remembered) override;

 private:
  struct Shown {
    MonitorPlace output;
    std::string picture;  // empty for a colour
  };
  // Empty when no daemon of either name runs.
  std::vector<Shown> Query();
  bool Show(const std::string& output, const std::string& picture) const;

  const DesktopTools& tools_;
  DrawFile draw_;
  std::string program_ = "awww";
};

}  // namespace lumidex
