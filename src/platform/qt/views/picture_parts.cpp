#include "platform/qt/views/picture_parts.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QPainter>

#include "platform/qt/mirrors/mirrors.h"
#include "platform/qt/mirrors/shown_picture.h"

namespace lumidex {
namespace {

QSize Fitting(const Picture& picture, QSize most) {
  const QSize size(picture.GetSize().width, picture.GetSize().height);
  if (size.width() <= most.width() && size.height() <= most.height()) return size;
  return size.scaled(most, Qt::KeepAspectRatio).expandedTo({1, 1});
}

class SidePicture final : public QWidget {
 public:
  using QWidget::QWidget;
  void Show(const Picture& picture) {
    if (picture_ == picture) return;
    picture_ = picture;
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    const QSize size(picture_.GetSize().width, picture_.GetSize().height);
    QRect box(QPoint(0, 0), size.scaled(this->size(), Qt::KeepAspectRatioByExpanding));
    box.moveBottomRight(rect().bottomRight());
    QPainter painter(this);
    shown_.Paint(painter, picture_, box);
  }

 private:
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
  auto* strip = new SidePicture(parent);
  strip->setFixedWidth(width);
  view.Follow(control, strip, [&control, strip] { strip->Show(control.Picture); });
  return strip;
}

}  // namespace lumidex
