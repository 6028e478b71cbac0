// The image control, where it is visible: its image at its zoom level, from its scroll position on.

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <QWidget>
#include <algorithm>
#include <cmath>

#include "base/run_time_error.h"
#include "controls/gvbox.h"
#include "platform/qt/conversions.h"
#include "platform/qt/guarded.h"
#include "platform/qt/mirrors/mirrors.h"
#include "platform/qt/pointer_watch.h"

namespace lumidex {
namespace {

// From here on a person looks at single pixels.
constexpr double leastBlockyScale = 2;
constexpr int screenPixelsPerWheelStep = 60;

class ImageControlView final : public PaintedWidget {
 public:
  ImageControlView(const Units& units, const Gvbox& control, QWidget* parent)
      : PaintedWidget(parent), units_(units), control_(control) {
    setFocusPolicy(Qt::StrongFocus);
  }

  void Show() {
    Picture picture;
    // A load that failed leaves nothing to see.
    IgnoreError([&] { picture = control_.Picture(); });
    if (!(picture == picture_)) {
      picture_ = picture;
      image_ = {};
      imageReduction_ = 0;
    }
    update();
  }

  QSize sizeHint() const override { return {320, 240}; }

  // The user drags the image or turns the wheel: where the view is to begin, in image pixels.
  std::function<void(int x, int y)> onScroll;
  // Sees the mouse before those who swallow it.
  void WatchDrag() { installEventFilter(this); }

 protected:
  void Paint() override {
    if (picture_.IsEmpty()) return;
    QPainter painter(this);
    const double ratio = devicePixelRatioF();
    // Device pixels for one of the picture: it is reduced once and enlarged while it is painted.
    const double scale = Level() * ratio;
    const double reduction = std::min(scale, 1.0), enlargement = std::max(scale, 1.0);
    const QImage& image = ImageAt(reduction);
    if (image.isNull()) return;
    const QRectF seen = QRectF(control_.ScrollX() * reduction, control_.ScrollY() * reduction,
                               width() * ratio / enlargement, height() * ratio / enlargement) &
                        QRectF(image.rect());
    const QRectF place(QPointF(0, 0), seen.size() * (enlargement / ratio));
    painter.setRenderHint(QPainter::SmoothPixmapTransform, scale < leastBlockyScale);
    if (image.hasAlphaChannel()) painter.fillRect(place, Qt::white);
    painter.drawImage(place, image, seen);
  }

  void wheelEvent(QWheelEvent* event) override {
    QPoint steps = event->angleDelta();
    if (event->modifiers() & Qt::ShiftModifier) steps = steps.transposed();
    const double unit = screenPixelsPerWheelStep / Level() / 120;
    onScroll(control_.ScrollX() - Rounded(steps.x() * unit), control_.ScrollY() - Rounded(steps.y() * unit));
    event->accept();
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
  // The picture reduced by a factor of at most 1, made once.
  const QImage& ImageAt(double reduction) {
    if (reduction == imageReduction_) return image_;
    imageReduction_ = reduction;
    image_ = {};
    const Size size = picture_.GetSize();
    const Size wanted{std::max(1, Rounded(size.width * reduction)),
                      std::max(1, Rounded(size.height * reduction))};
    IgnoreError([&] { image_ = ToImage(picture_.PixelsToShow(wanted)); });
    return image_;
  }

  static int Rounded(double value) { return static_cast<int>(std::lround(value)); }
  // Pixels of the window for one of the picture. A level of 0 shows as good as nothing.
  double Level() const { return std::max(0.001, double{control_.ZoomLevel.Get()} * units_.factor); }

  const Units& units_;
  const Gvbox& control_;
  Picture picture_;
  QImage image_;
  double imageReduction_ = 0;  // 0 while there is none
  QPointF grip_;
  QPoint gripScroll_;
};

}  // namespace

QWidget* MakeImageControl(FormView& view, Gvbox& control, QWidget* parent) {
  auto* shown = new ImageControlView(view.GetUnits(), control, parent);
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
