#pragma once
// Twips on this desktop. A form's positions were designed for one small font; where the desktop's font is
// larger, everything grows by one factor so that no text is cut off, as far as the screen has room.

#include <QFont>
#include <QSize>

namespace lumidex {

struct Units {
  // Logical pixels for each designed pixel (15 twips).
  double factor = 1;
  // For windows whose controls stand at designed positions: the desktop's own, or a smaller one where that
  // would need more room than there is.
  QFont font;

  // The factor at which the tightest captions of the main window fit in this font, and at which its least
  // size still fits into `room`, in logical pixels: what the screen has for a window's content.
  static Units For(const QFont& font, const QSize& room);

  int Pixels(double twips) const;
  float Twips(int pixels) const;
};

// What window managers draw around a window, in logical pixels, at most as a rule: it is known for certain
// only after the window stands.
inline constexpr QSize frameAllowance(12, 50);

}  // namespace lumidex
