#include "platform/qt/views/full_screen_view.h"

#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <cmath>

#include "platform/qt/form_views.h"
#include "platform/qt/guarded.h"
#include "platform/qt/mirrors/mirrors.h"
#include "platform/qt/mirrors/shown_picture.h"
#include "platform/qt/pointer_watch.h"

namespace lumidex {
namespace {

// Where the control stands in the window, in device pixels; halves go to the lower pixel.
QRectF DevicePlace(const Control& control) {
  return {std::floor(control.Left), std::floor(control.Top), control.Width, control.Height};
}

// The picture on black. It keeps the last picture until the next one is there.
class SlideView final : public PaintedWidget {
 public:
  SlideView(Platform& platform, const ImageBox& image, QWidget* parent)
      : PaintedWidget(parent), image_(image), shown_(platform, [this] { Take(); }) {
    setAttribute(Qt::WA_OpaquePaintEvent);
  }

  void Follow() {
    // The program hides it while it changes to the next one.
    if (!image_.Visible) return;
    wantedPlace_ = DevicePlace(image_);
    shown_.Want(image_.Picture, wantedPlace_.size().toSize(), DecodingPriority::Screen);
    if (!shown_.IsWaiting() && place_ != wantedPlace_) Take();
  }

 protected:
  void Paint() override {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    const qreal ratio = devicePixelRatioF();
    shown_.Paint(painter, {place_.topLeft() / ratio, place_.size() / ratio});
  }

 private:
  void Take() {
    place_ = wantedPlace_;
    update();
  }

  const ImageBox& image_;
  QRectF wantedPlace_, place_;
  ShownPicture shown_;
};

}  // namespace

FullScreenView::FullScreenView(FormViews& views, frmSlideShowFullScreenWindow& itsForm)
    : TypedView(views, itsForm, Qt::Window | Qt::FramelessWindowHint) {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  auto* slide = new SlideView(form.GetPlatform(), form.imgImage, this);
  rows->addWidget(slide);
  // A click means the same beside the picture as on it.
  Mirror* box = Follow(form.picImage, slide);
  new PointerWatch(*this, form.picImage, slide, box);
  new Mirror(Pushes(), form.imgImage, slide, [slide] { slide->Follow(); });
  auto* close = MakeButton(*this, form.cmdClose, this);
  close->move(0, 0);
  close->adjustSize();
  close->setFocus();
}

const Units& FullScreenView::GetUnits() const {
  units_.factor = 1.0 / devicePixelRatioF();
  return units_;
}

void FullScreenView::setVisible(bool visible) {
  const QWidget* before = Views().DialogParent();
  if (visible && !isVisible() && before && before != this) {
    // On the screen that the user looks at.
    setScreen(before->screen());
    setGeometry(before->screen()->geometry());
  }
  FormView::setVisible(visible);
}

}  // namespace lumidex
