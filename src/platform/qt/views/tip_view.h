#pragma once
// The tip of the day: the tip on a picture sheet, the choice and the buttons below it.

#include "platform/qt/form_view.h"

namespace lumidex {

class TipView final : public FormView {
 public:
  TipView(FormViews& views, Form& form);

 private:
  QWidget* Sheet();
};

}  // namespace lumidex
