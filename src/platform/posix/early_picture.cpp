#include "platform/posix/early_picture.h"

#include <algorithm>
#include <exception>

#include "base/run_time_error.h"

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
  opened_.path = commandLine.substr(1, commandLine.size() - 2);
  opened_.stamp = PictureStamp(files, opened_.path);
  if (opened_.stamp == 0) return;
  try {
    opened_.picture = OpenPicture(files, opened_.path);
  } catch (const RunTimeError&) {
    return;
  }
  // A drawing is made at the very size it is shown at, which is not known yet.
  if (opened_.picture.IsScalable()) return;
  decoding_ = std::jthread([picture = opened_.picture] {
    try {
      picture.PixelsFor(FitScreen(picture.GetSize()));
    } catch (const std::exception&) {
      // Whoever shows the picture meets the same again, be it a bad file or a lack of memory.
    }
  });
}

}  // namespace lumidex
