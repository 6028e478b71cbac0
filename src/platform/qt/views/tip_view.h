#pragma once
// The tip of the day: the tip on a picture sheet, the choice and the buttons below it.

#include "forms/frmTip.h"
#include "platform/qt/typed_view.h"

namespace lumidex {

class TipView final : public TypedView<frmTipWindow> {
 public:
  TipView(FormViews& views, frmTipWindow& form);

 private:
  QWidget* Sheet();
};

}  // namespace lumidex
