#include "platform/qt/mirrors/shown_picture.h"

#include <QPaintDevice>

#include "base/run_time_error.h"
#include "pictures/scaling.h"
#include "platform/qt/conversions.h"

namespace lumidex {
namespace {

// Down to half the size the painter's own scaling loses nothing to see, and it is several times as fast.
QImage Reduced(const QImage& image, Size size) {
  QImage reduced(size.width, size.height, image.format());
  if (image.hasAlphaChannel()) reduced.fill(Qt::transparent);
  QPainter painter(&reduced);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.setCompositionMode(QPainter::CompositionMode_Source);
  painter.drawImage(reduced.rect(), image);
  return reduced;
}

}  // namespace

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
    const Size shown{std::min(have.width, wanted.width), std::min(have.height, wanted.height)};
    if (have.width > 2 * shown.width || have.height > 2 * shown.height) {
      pixels = Scale(pixels, shown);
    }
    image_ = ToImage(pixels);
    if (image_.size() != QSize(shown.width, shown.height)) image_ = Reduced(image_, shown);
  } catch (const RunTimeError&) {
    // Painting has no way to report; the box stays empty.
  }
  return image_;
}

}  // namespace lumidex
