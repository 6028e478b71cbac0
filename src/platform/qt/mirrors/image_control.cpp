// The image control, where it is visible: its image at its zoom level, from its scroll position on. Only what
// is visible is drawn.

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <QWidget>
#include <algorithm>
#include <cmath>

#include "base/run_time_error.h"
#include "controls/gvbox.h"
#include "platform/qt/guarded.h"
#include "platform/qt/mirrors/mirrors.h"
#include "platform/qt/mirrors/shown_picture.h"
#include "platform/qt/pointer_watch.h"

namespace lumidex {
namespace {

constexpr int pixelsPerWheelStep = 60, wheelUnitsPerStep = 120;

int Rounded(double value) {
  return static_cast<int>(std::lround(value));
}

class ImageControlView final : public PaintedWidget {
 public:
  ImageControlView(const FormView& view, Gvbox& control, QWidget* parent)
      : PaintedWidget(parent),
        view_(view),
        control_(control),
        shown_(view.GetForm().GetPlatform(), [this] { update(); }) {
    setFocusPolicy(Qt::StrongFocus);
  }

  void Show() {
    picture_ = {};
    // A load that failed leaves nothing to see.
    IgnoreError([&] { picture_ = control_.Picture(); });
    Ask();
    update();
  }

  QSize sizeHint() const override { return {320, 240}; }

  // The user turns the wheel, presses a key for whole pages or drags the image: where the view is to begin,
  // in image pixels.
  std::function<void(int x, int y)> onScroll;
  // Sees the mouse before those who swallow it.
  void WatchDrag() { installEventFilter(this); }

 protected:
  void Paint() override {
    QPainter painter(this);
    const double ratio = devicePixelRatioF();
    const auto onDevicePixel = [ratio](double place) { return std::round(place * ratio) / ratio; };
    const QPointF corner(onDevicePixel(-control_.ScrollX() * Level()),
                         onDevicePixel(-control_.ScrollY() * Level()));
    shown_.Paint(painter, {corner, SizeAt(Level() * ratio) / ratio});
  }

  void wheelEvent(QWheelEvent* event) override {
    QPoint steps = event->angleDelta();
    if (event->modifiers() & Qt::ShiftModifier) steps = steps.transposed();
    const double unit = pixelsPerWheelStep / Level() / wheelUnitsPerStep;
    onScroll(control_.ScrollX() - Rounded(steps.x() * unit), control_.ScrollY() - Rounded(steps.y() * unit));
    event->accept();
  }

  // The arrows are the program's.
  void keyPressEvent(QKeyEvent* event) override {
    const int page = Rounded(height() / Level());
    switch (event->key()) {
      case Qt::Key_PageUp:
        return onScroll(control_.ScrollX(), control_.ScrollY() - page);
      case Qt::Key_PageDown:
        return onScroll(control_.ScrollX(), control_.ScrollY() + page);
      case Qt::Key_Home:
        return onScroll(0, 0);
      case Qt::Key_End:
        return onScroll(control_.ScrollMaxX(), control_.ScrollMaxY());
      default:
        PaintedWidget::keyPressEvent(event);
    }
  }

  bool eventFilter(QObject*, QEvent* event) override {
    const auto* mouse = dynamic_cast<const QMouseEvent*>(event);
    if (!mouse) return false;
    if (event->type() == QEvent::MouseButtonPress) {
      grip_ = mouse->position();
      gripScroll_ = {control_.ScrollX(), control_.ScrollY()};
    } else if (event->type() == QEvent::MouseMove && mouse->buttons() & Qt::LeftButton) {
      const QPointF way = (grip_ - mouse->position()) / Level();
      onScroll(gripScroll_.x() + Rounded(way.x()), gripScroll_.y() + Rounded(way.y()));
    }
    return false;
  }

 private:
  // Pixels of the window for one of the picture. A level of 0 shows as good as nothing.
  double Level() const { return std::max(0.001, double{control_.ZoomLevel.Get()} * view_.GetUnits().factor); }

  // The whole image, enlarged or reduced so much, in whole pixels.
  QSizeF SizeAt(double scale) const {
    const Size size = picture_.GetSize();
    return {std::max(1.0, std::round(size.width * scale)), std::max(1.0, std::round(size.height * scale))};
  }

  // Reduced once, but enlarged while it is painted.
  void Ask() {
    const double scale = std::min(1.0, Level() * devicePixelRatioF());
    shown_.Want(picture_, picture_.IsEmpty() ? QSize() : SizeAt(scale).toSize(), DecodingPriority::Screen);
  }

  const FormView& view_;
  Gvbox& control_;
  Picture picture_;
  ShownPicture shown_;
  QPointF grip_;
  QPoint gripScroll_;
};

}  // namespace

QWidget* MakeImageControl(FormView& view, Gvbox& control, QWidget* parent) {
  auto* shown = new ImageControlView(view, control, parent);
  Mirror* mirror = view.Follow(control, shown, [shown] { shown->Show(); });
  shown->onScroll = [&view, &control, mirror](int x, int y) {
    view.Serve(
        [&] {
          control.SetScrollX(x);
          control.SetScrollY(y);
        },
        mirror);
  };
  new PointerWatch(view, control, shown, mirror);
  shown->WatchDrag();
  return shown;
}

}  // namespace lumidex
