#pragma once
// The two dialogs that adjust colours: the pictures before and after, the sliders below them.

#include "forms/frmAdjustColorBalance.h"
#include "forms/frmAdjustContrastandBrightness.h"
#include "platform/qt/typed_view.h"

namespace lumidex {

class AdjustmentView final : public TypedView<AdjustmentWindow> {
 public:
  AdjustmentView(FormViews& views, frmAdjustColorBalanceWindow& form);
  AdjustmentView(FormViews& views, frmAdjustContrastandBrightnessWindow& form);

 private:
  struct Row {
    Label& name;
    Slider& slider;
    Label& value;
  };
  void Build(const std::vector<Row>& rows);
  QLayout* Previews(QWidget* frame);
  QLayout* Sliders(const std::vector<Row>& rows, QWidget* frame);
  QLayout* Buttons();
};

}  // namespace lumidex
