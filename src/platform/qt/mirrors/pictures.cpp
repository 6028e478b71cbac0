// Image boxes and picture boxes.

#include <QPainter>
#include <QTimer>

#include "platform/qt/artwork.h"
#include "platform/qt/conversions.h"
#include "platform/qt/guarded.h"
#include "platform/qt/mirrors/mirrors.h"
#include "platform/qt/mirrors/shown_picture.h"
#include "platform/qt/pointer_watch.h"

namespace lumidex {
namespace {

// The program hides a picture while it changes picture and place, and serves events in between. The old
// picture stays on screen for that moment: neither an empty place flickers up nor a picture at the other's
// size.
constexpr int milliSecondsBeforeHiding = 150;

class ImageView final : public PaintedWidget {
 public:
  explicit ImageView(QWidget* parent) : PaintedWidget(parent) { hide(); }

  void Show(const Picture& picture, bool stretch) {
    if (picture_ == picture && stretch_ == stretch) return;
    picture_ = picture;
    stretch_ = stretch;
    updateGeometry();
    update();
  }
  // A drawn picture of the program's own: it fills the widget and keeps its transparent places.
  void ShowArtwork(const std::string& name) { artwork_ = ToImage(ArtworkPicture(name + ".png")); }
  QSize sizeHint() const override {
    const Size size = picture_.GetSize();
    return {size.width, size.height};
  }

 protected:
  void Paint() override {
    QPainter painter(this);
    if (picture_.IsEmpty() && !artwork_.isNull()) {
      painter.setRenderHint(QPainter::SmoothPixmapTransform);
      painter.drawImage(rect(), artwork_);
      return;
    }
    shown_.Paint(painter, picture_, stretch_ ? rect() : QRect(QPoint(0, 0), sizeHint()));
  }

 private:
  Picture picture_;
  bool stretch_ = false;
  ShownPicture shown_;
  QImage artwork_;
};

// The sunken frame and the ground; what stands inside is clipped by `inside`.
class PictureBoxView final : public QWidget {
 public:
  PictureBoxView(const Units& units, QWidget* parent)
      : QWidget(parent), border_(units.Pixels(PictureBox::Border)), inside_(new ImageView(this)) {
    inside_->show();
  }

  QWidget* Inside() const { return inside_; }
  void Show(const Picture& picture, std::int32_t backColor) {
    inside_->Show(picture, false);
    const QColor back = ToColor(backColor);
    if (!back.isValid()) return;
    QPalette colors = inside_->palette();
    colors.setColor(QPalette::Window, back);
    inside_->setPalette(colors);
    inside_->setAutoFillBackground(true);
  }

 protected:
  void resizeEvent(QResizeEvent*) override {
    inside_->setGeometry(rect().adjusted(border_, border_, -border_, -border_));
  }
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    for (int ring = 0; ring < border_; ++ring) {
      painter.drawRect(rect().adjusted(ring, ring, -ring - 1, -ring - 1));
    }
  }

 private:
  int border_;
  ImageView* inside_;
};

}  // namespace

QWidget* MakeImage(FormView& view, ImageBox& control, QWidget* parent) {
  auto* image = new ImageView(parent);
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

QWidget* MakePictureBox(FormView& view, PictureBox& control, QWidget* parent) {
  auto* box = new PictureBoxView(view.GetUnits(), parent);
  Mirror* mirror =
      view.Follow(control, box, [&control, box] { box->Show(control.Picture, control.BackColor); });
  new PointerWatch(view, control, box->Inside(), mirror);
  view.SetInsides(control, {box->Inside()});
  return box;
}

}  // namespace lumidex
