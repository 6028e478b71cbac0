#include "platform/qt/views/report_view.h"

#include <QMenuBar>
#include <QVBoxLayout>

#include "platform/qt/mirrors/mirrors.h"

namespace lumidex {
namespace {

constexpr QSize firstSize(820, 480);

}  // namespace

ReportView::ReportView(FormViews& views, frmReportWindow& itsForm) : TypedView(views, itsForm) {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setMenuBar(MakeMenuBar(*this));
  rows->addWidget(MakeGrid(*this, form.MSFlexGrid1, this));
  resize(firstSize);
}

}  // namespace lumidex
