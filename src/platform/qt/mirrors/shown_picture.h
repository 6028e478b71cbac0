#pragma once
// A picture as it is painted: decoded for its box away from the event thread, kept, and painted until the
// next one is there.

#include <QImage>
#include <QPainter>
#include <functional>
#include <memory>

#include "ports/platform.h"

namespace lumidex {

class ShownPicture {
 public:
  // `changed` is called on the event thread when there is something else to paint.
  ShownPicture(Platform& platform, std::function<void()> changed);
  ShownPicture(const ShownPicture&) = delete;
  ShownPicture& operator=(const ShownPicture&) = delete;

  // What is to be painted, for a box of that many device pixels. What needs no decoding is there at once.
  void Want(const Picture& picture, QSize devicePixels, DecodingPriority priority);
  // True while something else than what is wanted is painted.
  bool IsWaiting() const { return isWaiting_; }
  // What is painted now; it may have been made for another size.
  const Picture& Painted() const { return painted_; }
  // False when there is nothing to paint, or it can't be had.
  bool HasImage() const { return !image_.isNull(); }

  // Paints into `box`, which may reach beyond the widget. What can't be had stays unpainted. Transparent
  // places show the ground.
  void Paint(QPainter& painter, const QRectF& box, const QBrush& ground = Qt::white) const;

 private:
  void Take(std::uint64_t number, const QImage& image);
  // Of the image in its own pixels, when it is painted into `box`.
  QRectF VisiblePart(const QPainter& painter, const QRectF& box) const;

  Platform& platform_;
  std::function<void()> changed_;
  Picture wanted_, painted_;
  QSize size_;
  bool isWaiting_ = false;
  std::uint64_t number_ = 0;  // of the last wish
  QImage image_;
  std::shared_ptr<ShownPicture*> self_;
  std::unique_ptr<DecodingService::Showing> showing_;
};

}  // namespace lumidex
