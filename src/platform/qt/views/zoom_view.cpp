#include "platform/qt/views/zoom_view.h"

#include <QScrollBar>
#include <QSignalBlocker>
#include <algorithm>
#include <cmath>

#include "platform/qt/mirrors/mirrors.h"

namespace lumidex {
namespace {

constexpr double pixelsPerStep = 20;

}  // namespace

ZoomView::ZoomView(FormViews& views, frmZoomViewWindow& itsForm)
    : TypedView(views, itsForm),
      across_(new QScrollBar(Qt::Horizontal, WidgetOf(itsForm.Gvbox1)->parentWidget())),
      down_(new QScrollBar(Qt::Vertical, WidgetOf(itsForm.Gvbox1)->parentWidget())) {
  across_->setObjectName(QStringLiteral("across"));
  down_->setObjectName(QStringLiteral("down"));
  connect(across_, &QScrollBar::valueChanged, this,
          [this](int x) { Serve([&] { form.Gvbox1.SetScrollX(x); }); });
  connect(down_, &QScrollBar::valueChanged, this,
          [this](int y) { Serve([&] { form.Gvbox1.SetScrollY(y); }); });
  new Mirror(Pushes(), form.Gvbox1, across_, [this] { ShowBars(); });
  // What was placed before this view had its own units is placed anew.
  form.Gvbox1.Changed.Emit();
  form.Picture1.Changed.Emit();
}

const Units& ZoomView::GetUnits() const {
  units_.factor = 1.0 / devicePixelRatioF();
  return units_;
}

float ZoomView::UsefulWidth(float width, float) const {
  return width - GetUnits().Twips(down_->sizeHint().width());
}

int ZoomView::RoomAboveStatusBar() const {
  return across_->sizeHint().height();
}

void ZoomView::ShowBars() {
  const Gvbox& image = form.Gvbox1;
  const QRect place = PlaceOf(*this, image);
  down_->setGeometry(place.right() + 1, place.top(), down_->sizeHint().width(), place.height());
  across_->setGeometry(place.left(), place.bottom() + 1, place.width(), across_->sizeHint().height());
  ShowBar(*across_, image.ScrollMaxX(), image.ScrollX(), place.width());
  ShowBar(*down_, image.ScrollMaxY(), image.ScrollY(), place.height());
}

void ZoomView::ShowBar(QScrollBar& bar, int most, int value, int shownLength) const {
  const double level = std::max(0.001, double{form.Gvbox1.ZoomLevel.Get()} * GetUnits().factor);
  const QSignalBlocker quiet(&bar);
  bar.setRange(0, most);
  bar.setPageStep(std::max(1, static_cast<int>(std::lround(shownLength / level))));
  bar.setSingleStep(std::max(1, static_cast<int>(std::lround(pixelsPerStep / level))));
  bar.setValue(value);
  bar.setVisible(most > 0);
}

}  // namespace lumidex
