#pragma once
// One way of changing the wallpaper, as one desktop or several alike have it.

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/posix/environment.h"
#include "platform/posix/run_program.h"
#include "platform/posix/session_bus.h"

namespace lumidex {

enum class WallpaperMode { Centered, Stretched, Tiled };

class WallpaperBackend {
 public:
  virtual ~WallpaperBackend() = default;
  // Under which what was there before is kept.
  virtual std::string Name() const = 0;
  // Whether the desktop shows a file of ours.
  virtual bool ShowsOurs() = 0;
  // What the desktop has now, for Restore; nothing when that can't be told.
  virtual std::optional<std::string> Remember() = 0;
  // False when the desktop did not take it.
  virtual bool Set(const std::string& file, WallpaperMode mode) = 0;
  // Gives back what was remembered; without it the desktop is left without a picture.
  virtual bool Restore(const std::optional<std::string>& remembered) = 0;
};

// What the backends stand on; tests put their own here.
struct DesktopTools {
  using Run = std::function<std::optional<ProgramAnswer>(const std::vector<std::string>& arguments)>;

  Environment environment;
  SessionBus& bus;
  // Our own folder for wallpaper files, without a separator at the end.
  std::string folder;
  Run run = [](const std::vector<std::string>& arguments) { return RunProgram(arguments); };

  bool Runs(const std::vector<std::string>& arguments) const {
    const auto answer = run(arguments);
    return answer && answer->exitCode == 0;
  }
  // A text that names a file in our folder, plainly or as an address.
  bool NamesOurs(const std::string& text) const;
};

// "file:///a%20b.bmp"
std::string FileAddress(const std::string& path);

}  // namespace lumidex
