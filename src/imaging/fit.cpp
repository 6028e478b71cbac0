#include "imaging/fit.h"

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

}  // namespace lumidex
