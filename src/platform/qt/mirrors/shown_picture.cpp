#include "platform/qt/mirrors/shown_picture.h"

#include <QPaintDevice>

#include "base/run_time_error.h"
#include "pictures/scaling.h"
#include "platform/qt/conversions.h"

namespace lumidex {

void ShownPicture::Paint(QPainter& painter, const Picture& picture, const QRect& box) {
  if (picture.IsEmpty() || box.isEmpty()) {
    picture_ = {};
    image_ = {};
    return;
  }
  const qreal ratio = painter.device()->devicePixelRatioF();
  const QImage& image = Scaled(picture, (QSizeF(box.size()) * ratio).toSize());
  if (image.isNull()) return;
  if (image.hasAlphaChannel()) painter.fillRect(box, Qt::white);
  // An enlarged picture is kept small and enlarged by the painter, which draws only what is visible.
  const bool isExact = image.size() == size_;
  painter.setRenderHint(QPainter::SmoothPixmapTransform, !isExact);
  painter.drawImage(box, image);
}

const QImage& ShownPicture::Scaled(const Picture& picture, QSize devicePixels) {
  if (picture_ == picture && size_ == devicePixels) return image_;
  picture_ = picture;
  size_ = devicePixels;
  image_ = {};
  try {
    const Size wanted{devicePixels.width(), devicePixels.height()};
    Pixels pixels = picture.PixelsFor(wanted);
    const Size have = pixels.GetSize();
    if (have.width > wanted.width || have.height > wanted.height) {
      pixels = Scale(pixels, {std::min(have.width, wanted.width), std::min(have.height, wanted.height)});
    }
    image_ = ToImage(pixels);
  } catch (const RunTimeError&) {
    // Painting has no way to report; the box stays empty.
  }
  return image_;
}

}  // namespace lumidex
