#pragma once
// Changes the wallpaper by the first of several ways that works, and gives back what was there before. Waits
// for the desktop: not for the event thread.

#include <memory>
#include <string>
#include <vector>

#include "platform/posix/ini_file.h"
#include "platform/posix/wallpaper/backend.h"

namespace lumidex {

class WallpaperChanger {
 public:
  // `folder` takes our wallpaper files and what is remembered; it is made when it is first needed.
  WallpaperChanger(std::vector<std::unique_ptr<WallpaperBackend>> ways, std::string folder);

  // Takes the file over under a name of its own, another one than the last, since desktops take the same name
  // for the same picture. False when no way works.
  bool Set(const std::string& file, WallpaperMode mode);
  // Gives back what was there before ours, on every way that shows ours. A picture that somebody else has set
  // since stays.
  void Clear();

 private:
  // The file under our next name; empty when that can't be done.
  std::string TakeOver(const std::string& file);
  void RemoveOurs() const;

  std::vector<std::unique_ptr<WallpaperBackend>> ways_;
  std::string folder_;
  IniFile kept_;
};

}  // namespace lumidex
