#include "platform/posix/early_picture.h"

#include <algorithm>

#include "platform/posix/environment.h"
#include "platform/posix/x11/x_screen.h"

namespace lumidex {
namespace {

constexpr Size usualScreen{1920, 1080};
// Of the screen's height the title, the menu and the bars leave the picture's area less than the rest.
constexpr int leastAbove = 100;
// What has no more pixels takes no longer than it takes to ask for the screen.
constexpr std::int64_t fewPixels = std::int64_t{1} << 22;

// The largest one, in pixels of its own.
Size LargestScreen() {
  const XScreen screen(ReadEnvironment("DISPLAY"));
  if (!screen.IsOpen()) return usualScreen;
  const auto monitors = screen.Monitors();
  return std::ranges::max_element(monitors, {}, [](const MonitorPlace& place) { return place.size.height; })
      ->size;
}

// The size at which a picture fits the picture's area of a window as large as the screen, which is four by
// three; no more pixels than that are asked for.
Size FitScreen(Size full) {
  if (std::int64_t{full.width} * full.height <= fewPixels) return full;
  const Size screen = LargestScreen();
  const int height = std::max(1, screen.height - leastAbove);
  const Size area{std::min(screen.width, height * 4 / 3), height};
  const double ratio = std::min(
      {1.0, static_cast<double>(area.width) / full.width, static_cast<double>(area.height) / full.height});
  return {std::max(1, static_cast<int>(full.width * ratio)),
          std::max(1, static_cast<int>(full.height * ratio))};
}

}  // namespace

EarlyPicture::EarlyPicture(DecodingService& decoding, const std::string& commandLine,
                           DecodingService::ShownSize shown)
    : client_(decoding) {
  if (commandLine.size() < 3) return;
  const DecodingExtent extent = shown ? DecodingExtent::Shown : DecodingExtent::AtLeast;
  client_.Want(
      DecodingPriority::Screen,
      {{commandLine.substr(1, commandLine.size() - 2)}, extent, shown ? std::move(shown) : FitScreen});
}

}  // namespace lumidex
