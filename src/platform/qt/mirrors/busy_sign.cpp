#include "platform/qt/mirrors/busy_sign.h"

#include <QPainter>

namespace lumidex {
namespace {

constexpr int side = 48;
constexpr int dots = 8;
constexpr int millisecondsADot = 120;

}  // namespace

BusySign::BusySign(QWidget* parent, const QRect& place) : QWidget(parent) {
  setObjectName(QStringLiteral("busySign"));
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setAccessibleName(QStringLiteral("The picture is being read"));
  QRect box(0, 0, side, side);
  box.moveCenter(place.intersected(parent->rect()).center());
  setGeometry(box);
  connect(&turning_, &QTimer::timeout, this, [this] {
    step_ = (step_ + 1) % dots;
    update();
  });
  turning_.start(millisecondsADot);
  show();
  raise();
}

void BusySign::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  // Dark on any picture and light on any ground.
  painter.setBrush(QColor(0, 0, 0, 160));
  painter.drawEllipse(rect());
  painter.translate(rect().center() + QPointF(0.5, 0.5));
  for (int dot = 0; dot < dots; ++dot) {
    const int age = (step_ - dot + dots) % dots;
    painter.setBrush(QColor(255, 255, 255, 255 - age * 26));
    painter.drawEllipse(QPointF(0, -side * 0.3), side * 0.06, side * 0.06);
    painter.rotate(360.0 / dots);
  }
}

}  // namespace lumidex
