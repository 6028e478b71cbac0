#include "platform/qt/views/thumbnail_view.h"

namespace lumidex {

ThumbnailView::ThumbnailView(FormViews& views, frmThumbNailWindow& itsForm)
    : TypedView(views, itsForm, Qt::Window, Labels::CutOff) {}

}  // namespace lumidex
