#include "platform/qt/views/main_view.h"

#include <QLabel>
#include <QTimer>
#include <algorithm>

#include "platform/qt/conversions.h"
#include "platform/qt/form_views.h"
#include "platform/qt/mirrors/image_view.h"

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
  auto* image = dynamic_cast<ImageView*>(WidgetOf(form.Image1));
  if (image) image->onShown = [this, image] { setUpdatesEnabled(updatesEnabled() || image->HasPicture()); };
}

}  // namespace lumidex
