#include "platform/qt/units.h"

#include <QFontMetrics>
#include <algorithm>
#include <cmath>

#include "controls/form.h"

namespace lumidex {

Units Units::For(const QFont& font) {
  // The main window's tightest places, with the least room that a text needs around it: "Remove One" on a
  // button 1230 twips wide, and buttons 255 twips high.
  const QFontMetrics metrics(font);
  const double width = (metrics.horizontalAdvance(QStringLiteral("Remove One")) + 6) / 82.0;
  const double height = (metrics.ascent() + metrics.descent() + 3) / 17.0;
  const double needed = std::max(width, height);
  // Small overruns are not worth showing every picture scaled.
  if (needed <= 1.03) return {1.0};
  return {std::ceil(needed * 20) / 20};
}

int Units::Pixels(double twips) const {
  return static_cast<int>(std::lround(twips / twipsPerPixel * factor));
}

float Units::Twips(int pixels) const {
  return static_cast<float>(pixels / factor * twipsPerPixel);
}

}  // namespace lumidex
