#pragma once
// Twips on this desktop. A form's positions were designed for one small font; where the desktop's font is
// larger, everything grows by one factor so that no text is cut off.

#include <QFont>

namespace lumidex {

struct Units {
  // Logical pixels for each designed pixel (15 twips), at least 1.
  double factor = 1;

  // The factor at which the tightest captions of the main window fit in this font.
  static Units For(const QFont& font);

  int Pixels(double twips) const;
  float Twips(int pixels) const;
};

}  // namespace lumidex
