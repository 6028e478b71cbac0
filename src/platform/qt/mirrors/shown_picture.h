#pragma once
// A picture as it is painted: at the size of its box, scaled once and kept.

#include <QImage>
#include <QPainter>

#include "pictures/picture.h"

namespace lumidex {

class ShownPicture {
 public:
  // Paints `picture` into `box`, which may reach beyond the widget. Asks the picture for no more pixels than
  // the box has on the device; what can't be had stays unpainted. Transparent places become white.
  void Paint(QPainter& painter, const Picture& picture, const QRect& box);

 private:
  const QImage& Scaled(const Picture& picture, QSize devicePixels);

  Picture picture_;
  QSize size_;
  QImage image_;
};

}  // namespace lumidex
