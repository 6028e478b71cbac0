#include "platform/qt/views/search_view.h"

#include <QBasicTimer>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QTimerEvent>
#include <QVBoxLayout>

#include "platform/qt/artwork.h"
#include "platform/qt/conversions.h"
#include "platform/qt/mirrors/mirrors.h"

namespace lumidex {
namespace {

constexpr int textWidth = 300;
constexpr int framesPerStrip = 16;
constexpr int millisecondsPerFrame = 90;

// Plays the frames of a strip, side by side in one picture, for as long as it is visible.
class Player final : public QWidget {
 public:
  Player(const Picture& strip, QWidget* parent) : QWidget(parent), strip_(ToImage(strip)) {
    setFixedSize(strip_.width() / framesPerStrip, strip_.height());
  }

 protected:
  void showEvent(QShowEvent*) override { clock_.start(millisecondsPerFrame, this); }
  void hideEvent(QHideEvent*) override { clock_.stop(); }
  void timerEvent(QTimerEvent* event) override {
    if (event->timerId() != clock_.timerId()) return;
    frame_ = (frame_ + 1) % framesPerStrip;
    update();
  }
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(rect(), strip_, QRect(frame_ * width(), 0, width(), height()));
  }

 private:
  QImage strip_;
  QBasicTimer clock_;
  int frame_ = 0;
};

}  // namespace

SearchView::SearchView(FormViews& views, frmlocatefilesWindow& itsForm) : TypedView(views, itsForm) {
  auto* rows = new QVBoxLayout(this);
  auto* said = new QHBoxLayout;
  said->setSpacing(2 * rows->spacing());
  said->addWidget(new Player(ArtworkPicture("search/frames.png"), this));
  QLabel* text = MakeLabel(*this, form.Label1, this);
  text->setWordWrap(true);
  text->setFixedWidth(textWidth);
  said->addWidget(text);
  rows->addLayout(said);
  rows->addWidget(MakeButton(*this, form.CancelButton, this), 0, Qt::AlignRight);
  rows->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace lumidex
