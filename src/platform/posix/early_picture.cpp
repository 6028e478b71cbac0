#include "platform/posix/early_picture.h"

#include <algorithm>

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

EarlyPicture::EarlyPicture(DecodingService& decoding, const std::string& commandLine) : client_(decoding) {
  if (commandLine.size() < 3) return;
  // The size at which it will be shown is not known yet, so it is not brought to one.
  client_.Want(DecodingPriority::Screen,
               {{commandLine.substr(1, commandLine.size() - 2)}, DecodingExtent::AtLeast, FitScreen});
}

}  // namespace lumidex
