#include "platform/qt/drawn_icons.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QStyleOption>

namespace lumidex {
namespace {

class Arrow final : public QIconEngine {
 public:
  explicit Arrow(QStyle::PrimitiveElement direction) : direction_(direction) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    QStyleOption option;
    option.rect = rect;
    option.palette = QApplication::palette();
    option.state = mode == QIcon::Disabled ? QStyle::State_None : QStyle::State_Enabled;
    QApplication::style()->drawPrimitive(direction_, &option, painter);
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(0, 0), size), mode, state);
    return pixmap;
  }
  QIconEngine* clone() const override { return new Arrow(*this); }

 private:
  QStyle::PrimitiveElement direction_;
};

}  // namespace

QIcon DrawnIcons::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const {
  if (icon == SP_ToolBarVerticalExtensionButton) return QIcon(new Arrow(PE_IndicatorArrowDown));
  if (icon != SP_ToolBarHorizontalExtensionButton) return QProxyStyle::standardIcon(icon, option, widget);
  const bool isMirrored = QApplication::layoutDirection() == Qt::RightToLeft;
  return QIcon(new Arrow(isMirrored ? PE_IndicatorArrowLeft : PE_IndicatorArrowRight));
}

}  // namespace lumidex
