#include "imaging/fit.h"

#include "base/run_time_error.h"
#include "base/widths.h"

namespace lumidex {

void FitToArea(std::int16_t& width, std::int16_t& height, std::int16_t areaWidth, std::int16_t areaHeight) {
  const auto byWidth = [&] {
    const auto ratio = static_cast<float>(static_cast<double>(areaWidth) / width);
    width = areaWidth;
    height = ToInt16(static_cast<double>(static_cast<float>(height) * ratio));
  };
  const auto byHeight = [&] {
    const auto ratio = static_cast<float>(static_cast<double>(areaHeight) / height);
    height = areaHeight;
    width = ToInt16(static_cast<double>(static_cast<float>(width) * ratio));
  };
  if (width > areaWidth && height < areaHeight) {
    byWidth();
  } else if (width < areaWidth && height > areaHeight) {
    byHeight();
  } else if (width > areaWidth && height > areaHeight) {
    if (width - areaWidth > height - areaHeight) {
      byWidth();
    } else if (width - areaWidth < height - areaHeight) {
      byHeight();
    }
  }
}

std::int16_t Zoomed(std::int16_t length, float zoom) {
  return ToInt16(static_cast<double>(static_cast<float>(length) * zoom));
}

Size ShownIn(const PictureArea& area, Size full, float zoom) {
  if (area.stretches) return area.size;
  Size shown = full;
  IgnoreError([&] {
    std::int16_t width = Zoomed(ToInt16(full.width), zoom), height = Zoomed(ToInt16(full.height), zoom);
    FitToArea(width, height, ToInt16(area.size.width), ToInt16(area.size.height));
    shown = {width, height};
  });
  return shown;
}

}  // namespace lumidex
