#include "platform/qt/views/picture_parts.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QPainter>

#include "platform/qt/guarded.h"
#include "platform/qt/mirrors/mirrors.h"
#include "platform/qt/mirrors/shown_picture.h"

namespace lumidex {
namespace {

QSize Fitting(const Picture& picture, QSize most) {
  const QSize size(picture.GetSize().width, picture.GetSize().height);
  if (size.width() <= most.width() && size.height() <= most.height()) return size;
  return size.scaled(most, Qt::KeepAspectRatio).expandedTo({1, 1});
}

// Fills its place with the lower right of a picture.
class SidePicture final : public PaintedWidget {
 public:
  SidePicture(Platform& platform, QWidget* parent)
      : PaintedWidget(parent), shown_(platform, [this] { update(); }) {}
  void Show(const Picture& picture) {
    picture_ = picture;
    Ask();
  }

 protected:
  void resizeEvent(QResizeEvent*) override { Ask(); }
  void Paint() override {
    QPainter painter(this);
    shown_.Paint(painter, Box());
  }

 private:
  void Ask() {
    shown_.Want(picture_, (QSizeF(Box().size()) * devicePixelRatioF()).toSize(), DecodingPriority::Page);
  }
  QRect Box() const {
    const QSize size(picture_.GetSize().width, picture_.GetSize().height);
    QRect box(QPoint(0, 0), size.scaled(this->size(), Qt::KeepAspectRatioByExpanding));
    box.moveBottomRight(rect().bottomRight());
    return box;
  }

  Picture picture_;
  ShownPicture shown_;
};

}  // namespace

QWidget* MakeFramedPicture(FormView& view, ImageBox& control, QSize most, QWidget* parent) {
  constexpr int gap = 3;
  auto* frame = new QFrame(parent);
  frame->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  const int around = 2 * (gap + frame->frameWidth());
  frame->setFixedSize(most + QSize(around, around));
  auto* middle = new QHBoxLayout(frame);
  middle->setContentsMargins(gap, gap, gap, gap);
  QWidget* picture = MakeImage(view, control, frame);
  new Mirror(view.Pushes(), control, picture,
             [&control, picture, most] { picture->setFixedSize(Fitting(control.Picture, most)); });
  middle->addWidget(picture, 0, Qt::AlignCenter);
  return frame;
}

QWidget* MakeSidePicture(FormView& view, ImageBox& control, int width, QWidget* parent) {
  auto* strip = new SidePicture(view.GetForm().GetPlatform(), parent);
  strip->setFixedWidth(width);
  view.Follow(control, strip, [&control, strip] { strip->Show(control.Picture); });
  return strip;
}

}  // namespace lumidex
