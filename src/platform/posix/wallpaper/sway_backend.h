#pragma once
// sway, which starts a program of its own for the background of each output.

#include "platform/posix/wallpaper/backend.h"
#include "platform/posix/wallpaper/processes.h"

namespace lumidex {

class SwayBackend final : public WallpaperBackend {
 public:
  SwayBackend(const DesktopTools& tools, ProcessList processes)
      : tools_(tools), processes_(std::move(processes)) {}
  std::string Name() const override { return "sway"; }
  bool ShowsOurs() override;
  std::optional<std::string> Remember() override;
  bool Set(const std::string& file, WallpaperMode mode) override;
  bool Restore(const std::optional<std::string>& remembered) override;

 private:
  bool Tell(const std::string& output, const std::string& picture, const std::string& mode) const;

  const DesktopTools& tools_;
  ProcessList processes_;
};

// Other compositors with layers: a background program of our own, which stays when we leave and is replaced
// and ended by us alone.
class SwaybgBackend final : public WallpaperBackend {
 public:
  // Starts a program that lives on by itself; false when that can't be done.
  using Start = std::function<bool(const std::vector<std::string>& arguments)>;
  using End = std::function<void(int process)>;
  // Waits until what was started covers the screen.
  using Settle = std::function<void()>;
  SwaybgBackend(const DesktopTools& tools, ProcessList processes, Start start, End end, Settle settle)
      : tools_(tools),
        processes_(std::move(processes)),
        start_(std::move(start)),
        end_(std::move(end)),
        settle_(std::move(settle)) {}
  std::string Name() const override { return "swaybg"; }
  bool ShowsOurs() override { return !Ours().empty(); }
  // The user's own stands behind ours and comes out again when that ends.
  std::optional<std::string> Remember() override { return {}; }
  bool Set(const std::string& file, WallpaperMode mode) override;
  bool Restore(const std::optional<std::string>& remembered) override;

 private:
  std::vector<int> Ours() const;

  const DesktopTools& tools_;
  ProcessList processes_;
  Start start_;
  End end_;
  Settle settle_;
};

}  // namespace lumidex
