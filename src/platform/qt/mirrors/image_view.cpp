#include "platform/qt/mirrors/image_view.h"

#include <QWindow>
#include <cmath>

#include "platform/qt/accessibility.h"
#include "platform/qt/artwork.h"
#include "platform/qt/conversions.h"

namespace lumidex {
namespace {

constexpr int millisecondsUntilBusySign = 500;

// Light enough to be no part of a picture.
QBrush Checkerboard() {
  constexpr int cell = 8;
  QImage two(2 * cell, 2 * cell, QImage::Format_RGB32);
  two.fill(QColor(255, 255, 255));
  QPainter painter(&two);
  for (const QPoint at : {QPoint(cell, 0), QPoint(0, cell)}) {
    painter.fillRect(QRect(at, QSize(cell, cell)), QColor(224, 224, 224));
  }
  painter.end();
  return two;
}

// What is no larger than the cell of a page waits behind the pictures that people look at.
DecodingPriority PriorityOf(const QSize& size) {
  constexpr int cell = 160;
  return size.width() <= cell && size.height() <= cell ? DecodingPriority::Page : DecodingPriority::Screen;
}

}  // namespace

ImageView::ImageView(Platform& platform, PushQueue& pushes, QWidget* parent)
    : PaintedWidget(parent),
      shown_(platform, [this] { TakeWhatCame(); }),
      ask_(new Mirror(pushes, this, [this] { Ask(); })) {
  SetAccessibleRole(*this, QAccessible::Graphic);
  hide();
  untilBusy_.setObjectName(QStringLiteral("untilBusySign"));
  untilBusy_.setSingleShot(true);
  untilBusy_.setInterval(millisecondsUntilBusySign);
  connect(&untilBusy_, &QTimer::timeout, this, [this] { ShowBusySign(); });
}

ImageView::~ImageView() {
  delete busy_;
}

void ImageView::Show(const Picture& picture, bool stretch) {
  if (picture_ == picture && stretch_ == stretch) return;
  picture_ = picture;
  stretch_ = stretch;
  updateGeometry();
  AskSoon();
}

void ImageView::Place(const QRect& place) {
  if (place_ == place) return;
  place_ = place;
  AskSoon();
}

void ImageView::PlaceOnDevice(const QRect& pixels) {
  if (wantedPixels_ == pixels) return;
  wantedPixels_ = pixels;
  AskSoon();
}

QRect ImageView::WantedPlace() const {
  if (!wantedPixels_) return place_.value_or(geometry());
  const qreal ratio = devicePixelRatioF();
  return QRectF(QPointF(wantedPixels_->topLeft()) / ratio, QSizeF(wantedPixels_->size()) / ratio)
      .toAlignedRect();
}

void ImageView::TakePlace() {
  if (pixels_ != wantedPixels_) update();
  pixels_ = wantedPixels_;
  setGeometry(WantedPlace());
  // What stands behind it is not painted in vain.
  setAttribute(Qt::WA_OpaquePaintEvent, FillsWidget());
}

bool ImageView::FillsWidget() const {
  if (!shown_.HasImage() || !pixels_) return false;
  // Elsewhere its edges may lie within pixels of the screen, where the widget reaches further than the
  // picture.
  const qreal ratio = devicePixelRatioF();
  return ratio == std::floor(ratio) && QSizeF(size()) * ratio == QSizeF(pixels_->size());
}

void ImageView::ShowArtwork(const std::string& name) {
  artwork_ = ToImage(ArtworkPicture(name + ".png"));
}

QSize ImageView::sizeHint() const {
  const Size size = picture_.GetSize();
  return {size.width, size.height};
}

QRect ImageView::BoxIn(const QSize& size, const Picture& picture) const {
  if (stretch_) return {QPoint(0, 0), size};
  const Size natural = picture.GetSize();
  return {0, 0, natural.width, natural.height};
}

void ImageView::Ask() {
  const QRect place = WantedPlace();
  // The same picture at another size is there already, if not quite as sharp as it will be.
  if (shown_.Painted() == picture_ || !isVisible()) TakePlace();
  // What nobody sees is not decoded.
  if (!isVisible() || AwaitsExposure()) return;
  ratio_ = devicePixelRatioF();
  const QSize box = wantedPixels_ ? wantedPixels_->size()
                                  : (QSizeF(BoxIn(place.size(), picture_).size()) * ratio_).toSize();
  shown_.Want(picture_, box, PriorityOf(place.size()));
  if (!shown_.IsWaiting()) {
    if (onShown) onShown();
    return;
  }
  if (!untilBusy_.isActive() && !busy_) untilBusy_.start();
  if (onAsked) onAsked();
}

bool ImageView::AwaitsExposure() {
  QWindow* on = window()->windowHandle();
  if (!asksOnceExposed_ || (on && on->isExposed())) return false;
  if (on) on->installEventFilter(this);
  if (!windowBefore_.isValid()) windowBefore_ = window()->size();
  return window()->size() == windowBefore_;
}

bool ImageView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Expose) {
    watched->removeEventFilter(this);
    AskSoon();
  }
  return PaintedWidget::eventFilter(watched, event);
}

bool ImageView::IsSoonThere(const Picture& picture) const {
  // Of as many pixels a photo is decoded while a window comes to the screen.
  constexpr std::int64_t few = 4'000'000;
  const Size size = picture.GetSize();
  const bool isSoonDecoded = std::int64_t{size.width} * size.height <= few || picture.HeldBytes() > 0;
  return !picture.IsEmpty() && isSoonDecoded && shown_.Painted() != picture;
}

void ImageView::TakeWhatCame() {
  untilBusy_.stop();
  delete busy_;
  TakePlace();
  update();
  if (onShown) onShown();
}

void ImageView::ShowBusySign() {
  if (!isVisible() || !shown_.IsWaiting()) return;
  busy_ = new BusySign(parentWidget(), WantedPlace());
}

void ImageView::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  AskSoon();
}

void ImageView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  AskSoon();
}

void ImageView::PaintOnDevice(QPainter& painter) {
  // The parent's corner can lie within a pixel of the screen, the picture's does not.
  const QPoint corner = painter.deviceTransform().map(QPointF(-pos())).toPoint();
  const QRectF box = painter.deviceTransform().inverted().mapRect(QRectF(pixels_->translated(corner)));
  painter.setBrushOrigin(box.topLeft());
  shown_.Paint(painter, box, Checkerboard());
}

void ImageView::Paint() {
  // The window may have come to another screen.
  const bool hasOtherRatio = ratio_ != devicePixelRatioF();
  if (hasOtherRatio) AskSoon();
  QPainter painter(this);
  if (hasOtherRatio && testAttribute(Qt::WA_OpaquePaintEvent)) painter.fillRect(rect(), palette().window());
  if (picture_.IsEmpty() && !artwork_.isNull()) {
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(rect(), artwork_);
    return;
  }
  if (pixels_) {
    PaintOnDevice(painter);
  } else {
    shown_.Paint(painter, BoxIn(size(), shown_.Painted()), ground_);
  }
}

}  // namespace lumidex
