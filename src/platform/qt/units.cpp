#include "platform/qt/units.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <algorithm>
#include <cmath>

#include "forms/WPaper2.h"

namespace lumidex {
namespace {

constexpr double leastFontPoints = 4;

// The factor for a font, by the main window's tightest places, with the least room that a text needs around
// it: "Remove One" on a button 1230 twips wide, and buttons 255 twips high.
double NeededFor(const QFont& font) {
  const QFontMetrics metrics(font);
  const double width = (metrics.horizontalAdvance(QStringLiteral("Remove One")) + 6) / 82.0;
  const double height = (metrics.ascent() + metrics.descent() + 3) / 17.0;
  return std::max(width, height);
}

// The greatest factor at which the main window's least size fits.
double MostFor(const QSize& room) {
  const double width = (WPaper2Window::leastWidth - Form::nominalFrameWidth) / double{twipsPerPixel};
  const double height = (WPaper2Window::leastHeight - Form::nominalFrameHeight) / double{twipsPerPixel};
  return std::min(room.width() / width, room.height() / height);
}

}  // namespace

Units Units::For(const QFont& font, const QSize& room) {
  const double most = MostFor(room);
  // The room around the texts takes up the smallest overruns.
  constexpr double tolerated = 1.03;
  const double needed = NeededFor(font);
  const double wanted = needed <= tolerated ? 1.0 : std::ceil(needed * 20) / 20;
  Units units{std::min(wanted, most), font};
  if (wanted <= most) return units;
  double points = QFontInfo(font).pointSizeF();
  while (NeededFor(units.font) > most && points > leastFontPoints) {
    points -= 0.5;
    units.font.setPointSizeF(points);
  }
  return units;
}

int Units::Pixels(double twips) const {
  return static_cast<int>(std::lround(twips / twipsPerPixel * factor));
}

float Units::Twips(int pixels) const {
  return static_cast<float>(pixels / factor * twipsPerPixel);
}

}  // namespace lumidex
