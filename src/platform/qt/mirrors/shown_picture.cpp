#include "platform/qt/mirrors/shown_picture.h"

#include <QPaintDevice>
#include <thread>

#include "pictures/pixels.h"
#include "platform/qt/conversions.h"

namespace lumidex {

ShownPicture::ShownPicture(Platform& platform, std::function<void()> changed)
    : platform_(platform), changed_(std::move(changed)), self_(std::make_shared<ShownPicture*>(this)) {}

void ShownPicture::Want(const Picture& picture, QSize devicePixels, DecodingPriority priority) {
  if (wanted_ == picture && size_ == devicePixels) return;
  wanted_ = picture;
  size_ = devicePixels;
  isWaiting_ = true;
  const std::uint64_t number = ++number_;
  // Ends behind the new wish: until then its work may serve that one too, when only the size is another.
  const auto before = std::move(showing_);
  if (picture.IsEmpty() || devicePixels.isEmpty()) return Take(number, {});
  // The answer comes from any thread, and maybe when this is gone.
  const auto ready = [number, self = std::weak_ptr(self_), here = std::this_thread::get_id(),
                      &events = platform_.events](const Pixels& pixels) {
    const auto take = [number, self, image = ToImage(pixels)] {
      if (const auto shown = self.lock()) (*shown)->Take(number, image);
    };
    if (std::this_thread::get_id() == here) {
      take();
    } else {
      events.Post(take);
    }
  };
  auto showing =
      platform_.decoding.Show(picture, {devicePixels.width(), devicePixels.height()}, priority, ready);
  if (number == number_) showing_ = std::move(showing);
}

void ShownPicture::Take(std::uint64_t number, const QImage& image) {
  if (number != number_) return;
  isWaiting_ = false;
  painted_ = wanted_;
  image_ = image;
  changed_();
}

void ShownPicture::Paint(QPainter& painter, const QRectF& box, const QBrush& ground) const {
  if (image_.isNull() || box.isEmpty()) return;
  if (image_.hasAlphaChannel()) painter.fillRect(box, ground);
  // An enlarged picture is kept small and enlarged by the painter, as much of it as is visible. Enlarged by a
  // whole number its pixels stay hard.
  const QSize size = (box.size() * painter.device()->devicePixelRatioF()).toSize();
  const bool isWhole = size.width() % image_.width() == 0 && size.height() % image_.height() == 0;
  painter.setRenderHint(QPainter::SmoothPixmapTransform, !isWhole);
  const QRectF part = VisiblePart(painter, box);
  if (part.isEmpty()) return;
  const double across = box.width() / image_.width(), down = box.height() / image_.height();
  painter.drawImage({box.left() + part.left() * across, box.top() + part.top() * down, part.width() * across,
                     part.height() * down},
                    image_, part);
}

QRectF ShownPicture::VisiblePart(const QPainter& painter, const QRectF& box) const {
  const QRect all = image_.rect();
  QRectF window = painter.window();
  if (painter.hasClipping()) window &= painter.clipBoundingRect();
  if (!painter.transform().isIdentity() || window.contains(box)) return all;
  const double across = all.width() / box.width(), down = all.height() / box.height();
  const QRectF seen((window.left() - box.left()) * across, (window.top() - box.top()) * down,
                    window.width() * across, window.height() * down);
  // A smooth enlargement looks at the neighbours, too.
  return seen.toAlignedRect().adjusted(-1, -1, 1, 1) & all;
}

}  // namespace lumidex
