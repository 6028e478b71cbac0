#include "platform/posix/wallpaper/canvas.h"

#include <algorithm>

#include "pictures/alpha.h"
#include "pictures/scaling.h"

namespace lumidex {
namespace {

constexpr std::uint32_t black = 0xFF000000;

Pixels OverWhite(const Pixels& pixels) {
  if (pixels.Format() == PixelFormat::Rgb) return pixels;
  Pixels opaque = Pixels::MakeUnfilled(pixels.GetSize(), PixelFormat::Rgb);
  for (int y = 0; y < pixels.Height(); ++y) BlendOverWhite(pixels.Row(y), pixels.Format(), opaque.Row(y));
  return opaque;
}

// Copies `tile` once, its corner at that place of the canvas, cut off at the box.
void CopyInto(Pixels& canvas, const MonitorPlace& box, const Pixels& tile, int left, int top) {
  const int firstX = std::max({left, box.x, 0});
  const int endX = std::min({left + tile.Width(), box.x + box.size.width, canvas.Width()});
  const int firstY = std::max({top, box.y, 0});
  const int endY = std::min({top + tile.Height(), box.y + box.size.height, canvas.Height()});
  if (firstX >= endX) return;
  for (int y = firstY; y < endY; ++y) {
    const auto from = tile.Row(y - top).subspan(static_cast<std::size_t>(firstX - left),
                                                static_cast<std::size_t>(endX - firstX));
    std::ranges::copy(from, canvas.Row(y).begin() + firstX);
  }
}

void DrawOn(Pixels& canvas, const MonitorPlace& monitor, const Pixels& full, WallpaperMode mode) {
  switch (mode) {
    case WallpaperMode::Centered:
      CopyInto(canvas, monitor, full, monitor.x + (monitor.size.width - full.Width()) / 2,
               monitor.y + (monitor.size.height - full.Height()) / 2);
      break;
    case WallpaperMode::Stretched:
      CopyInto(canvas, monitor, Scale(full, monitor.size), monitor.x, monitor.y);
      break;
    case WallpaperMode::Tiled:
      for (int top = 0; top < monitor.size.height; top += full.Height()) {
        for (int left = 0; left < monitor.size.width; left += full.Width()) {
          CopyInto(canvas, monitor, full, monitor.x + left, monitor.y + top);
        }
      }
      break;
  }
}

}  // namespace

Pixels DrawWallpaper(const Picture& picture, WallpaperMode mode, Size screen,
                     const std::vector<MonitorPlace>& monitors) {
  const Pixels full = OverWhite(picture.FullPixels());
  Pixels canvas = Pixels::Make(screen, PixelFormat::Rgb, black);
  for (const MonitorPlace& monitor : monitors) DrawOn(canvas, monitor, full, mode);
  return canvas;
}

}  // namespace lumidex
