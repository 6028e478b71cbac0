#include "platform/posix/early_picture.h"

#include <algorithm>

#include "base/run_time_error.h"
#include "ports/open_picture.h"

namespace lumidex {
namespace {

constexpr Size usualScreen{1920, 1080};

// The size at which a picture fits the screen; no more pixels than it has are ever asked for.
Size FitScreen(Size full) {
  const double ratio = std::min({1.0, static_cast<double>(usualScreen.width) / full.width,
                                 static_cast<double>(usualScreen.height) / full.height});
  return {std::max(1, static_cast<int>(full.width * ratio)),
          std::max(1, static_cast<int>(full.height * ratio))};
}

}  // namespace

EarlyPicture::EarlyPicture(const FileSystem& files, const std::string& commandLine) {
  if (commandLine.size() < 3) return;
  path_ = commandLine.substr(1, commandLine.size() - 2);
  try {
    picture_ = OpenPicture(files, path_);
  } catch (const RunTimeError&) {
    return;
  }
  // A drawing is made at the very size it is shown at, which is not known yet.
  if (picture_.IsScalable()) return;
  decoding_ = std::jthread([picture = picture_] {
    try {
      picture.PixelsFor(FitScreen(picture.GetSize()));
    } catch (const RunTimeError&) {
      // Whoever shows the picture meets the same again.
    }
  });
}

}  // namespace lumidex
