#include "platform/qt/views/main_view.h"

#include <QLabel>
#include <QTimer>
#include <algorithm>

#include "platform/qt/conversions.h"
#include "platform/qt/form_views.h"

namespace lumidex {
namespace {

constexpr int longestHoldMilliseconds = 200;

}  // namespace

MainView::MainView(FormViews& views, WPaper2Window& itsForm)
    : TypedView(views, itsForm, Qt::Window, Labels::AroundText) {
  WidgetOf(form.LstLeft)->setAccessibleName(ToQt(form.lblSelectionList.Caption.Get()));
  WidgetOf(form.LstRight)->setAccessibleName(ToQt(form.lblDisplayList.Caption.Get()));
  qobject_cast<QLabel*>(WidgetOf(form.txtPrgTitle))->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
  if (views.AwaitsPicture()) HoldPainting();
}

float MainView::UsefulWidth(float width, float height) const {
  return std::min(width, form.WidestFor(height));
}

void MainView::HoldPainting() {
  setUpdatesEnabled(false);
  QTimer::singleShot(longestHoldMilliseconds, this, [this] { setUpdatesEnabled(true); });
  new Mirror(Pushes(), form.Image1, this, [this] {
    if (form.Image1.Visible && !form.Image1.Picture.Get().IsEmpty()) setUpdatesEnabled(true);
  });
}

}  // namespace lumidex
