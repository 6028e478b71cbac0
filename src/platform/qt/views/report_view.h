#pragma once
// The table of the last scan below its menu.

#include "forms/frmReport.h"
#include "platform/qt/typed_view.h"

namespace lumidex {

class ReportView final : public TypedView<frmReportWindow> {
 public:
  ReportView(FormViews& views, frmReportWindow& form);
};

}  // namespace lumidex
