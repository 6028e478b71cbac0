#include "platform/qt/content_area.h"

#include <QScreen>
#include <QStyle>

#include "platform/qt/units.h"

namespace lumidex {
namespace {

constexpr int leastHeight = 100;

}  // namespace

ContentArea::ContentArea(QWidget* content, QWidget* parent) : QScrollArea(parent) {
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);
  setWidget(content);
}

QSize ContentArea::sizeHint() const {
  // What is empty now may be filled later.
  constexpr QSize some(2 * leastHeight, leastHeight);
  return widget()->sizeHint().expandedTo(minimumSizeHint()).expandedTo(some);
}

QSize ContentArea::minimumSizeHint() const {
  // Wide enough not to scroll sideways when it has to scroll.
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
  const int room = screen()->availableSize().width() - frameAllowance.width() - 4 * bar;
  const QSize least = widget()->minimumSizeHint();
  return {std::min(least.width() + bar, room), std::min(least.height(), leastHeight)};
}

}  // namespace lumidex
