// Image boxes and picture boxes.

#include <QPainter>
#include <QTimer>
#include <cmath>

#include "platform/qt/accessibility.h"
#include "platform/qt/conversions.h"
#include "platform/qt/mirrors/image_view.h"
#include "platform/qt/mirrors/mirrors.h"
#include "platform/qt/pointer_watch.h"

namespace lumidex {
namespace {

// The program hides a picture while it changes picture and place, and serves events in between. The old
// picture stays on screen for that moment: neither an empty place flickers up nor a picture at the other's
// size.
constexpr int milliSecondsBeforeHiding = 150;

// The sunken frame and the ground; what stands inside is clipped by `inside`.
class PictureBoxView final : public QWidget {
 public:
  PictureBoxView(FormView& view, bool hasBorder, QWidget* parent)
      : QWidget(parent),
        border_(hasBorder ? view.GetUnits().Pixels(PictureBox::BorderWidth) : 0),
        inside_(new ImageView(view.GetForm().GetPlatform(), view.Pushes(), this)) {
    // What the window shows behind it must not look like a part of the picture.
    inside_->setAutoFillBackground(true);
    inside_->installEventFilter(this);
    SetAccessibleRole(*inside_, QAccessible::Grouping);
    inside_->show();
  }

  QWidget* Inside() const { return inside_; }
  void Show(const Picture& picture, std::int32_t backColor) {
    inside_->Show(picture, false);
    const QColor back = ToColour(backColor);
    if (!back.isValid()) return;
    QPalette colours = inside_->palette();
    colours.setColor(QPalette::Window, back);
    inside_->setPalette(colours);
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) update();
    return false;
  }
  void resizeEvent(QResizeEvent*) override {
    inside_->setGeometry(rect().adjusted(border_, border_, -border_, -border_));
  }
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    // The frame shows the keyboard, too.
    painter.setPen(palette().color(inside_->hasFocus() ? QPalette::Highlight : QPalette::Mid));
    for (int ring = 0; ring < border_; ++ring) {
      painter.drawRect(rect().adjusted(ring, ring, -ring - 1, -ring - 1));
    }
  }

 private:
  int border_;
  ImageView* inside_;
};

}  // namespace

QWidget* MakeImage(FormView& view, ImageBox& control, QWidget* parent, const QBrush& ground) {
  auto* image = new ImageView(view.GetForm().GetPlatform(), view.Pushes(), parent);
  image->SetGround(ground);
  if (!control.PictureKey.Get().empty()) image->ShowArtwork(control.PictureKey);
  auto* hide = new QTimer(image);
  hide->setSingleShot(true);
  hide->setInterval(milliSecondsBeforeHiding);
  QObject::connect(hide, &QTimer::timeout, image, [&control, image] {
    if (!control.Visible) image->hide();
  });
  const auto push = [&control, image, hide] {
    if (!control.Visible) {
      if (!image->isHidden() && !hide->isActive()) hide->start();
      return;
    }
    hide->stop();
    image->Show(control.Picture, control.Stretch);
    if (image->isHidden()) image->show();
  };
  Mirror* mirror = view.Follow(control, image, push, Showing::ByPush);
  new PointerWatch(view, control, image, mirror);
  return image;
}

void PlaceImage(FormView& view, ImageBox& control) {
  auto* image = dynamic_cast<ImageView*>(view.WidgetOf(control));
  if (!image) return;
  new Mirror(view.Pushes(), control, image, [&view, &control, image] {
    // A picture that is hidden while the program changes it keeps its place until the new one is ready.
    if (!control.Visible) return;
    if (IsMeasuredInScreenPixels(control)) {
      // The size as it is, wherever between two pixels the box begins.
      const auto whole = [](float length) { return static_cast<int>(std::floor(length + 0.5F)); };
      image->PlaceOnDevice(
          {whole(control.Left), whole(control.Top), whole(control.Width), whole(control.Height)});
    } else {
      image->Place(PlaceOf(view, control));
    }
  });
}

QWidget* MakePictureBox(FormView& view, PictureBox& control, QWidget* parent) {
  auto* box = new PictureBoxView(view, control.Border != BorderStyle::None, parent);
  Mirror* mirror =
      view.Follow(control, box, [&control, box] { box->Show(control.Picture, control.BackColor); });
  new PointerWatch(view, control, box->Inside(), mirror);
  view.SetInsides(control, {box->Inside()});
  return box;
}

}  // namespace lumidex
