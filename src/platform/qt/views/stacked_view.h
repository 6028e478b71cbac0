#pragma once
// The plain view: a form's controls one below the other, its buttons in a row at the bottom.

#include "platform/qt/form_view.h"

namespace lumidex {

class StackedView final : public FormView {
 public:
  StackedView(FormViews& views, Form& form);
};

}  // namespace lumidex
