#pragma once
// The picture area as it was when the program ended last, $XDG_CACHE_HOME/Lumidex/window.ini: the next
// picture of a command line can be made for it before there is a window.

#include <optional>
#include <string>

#include "platform/posix/environment.h"
#include "ports/picture_area.h"

namespace lumidex {

class KeptPictureArea {
 public:
  explicit KeptPictureArea(const Environment& environment = ReadEnvironment);

  // Nothing when none is kept, or none that can be.
  std::optional<PictureArea> Read() const;
  // Where it can't be written the next start does without.
  void Keep(const PictureArea& area) const;

 private:
  std::string path_;
};

}  // namespace lumidex
