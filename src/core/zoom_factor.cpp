#include "core/zoom_factor.h"

#include "forms/WPaper2.h"

namespace lumidex {

float ZoomFactorOf(int level) {
  if (level >= 1 && level <= 8) return static_cast<float>(level) * 0.25F;
  if (level >= 9 && level <= 11) return static_cast<float>(level - 6);
  return 0.0F;
}

float GetZoomFactor(App& app) {
  for (int level = 1; level <= 11; ++level) {
    if (app.WPaper2.mnuEditZoomLevel(level).Checked) return ZoomFactorOf(level);
  }
  return 0.0F;
}

}  // namespace lumidex
