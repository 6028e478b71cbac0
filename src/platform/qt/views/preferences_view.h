#pragma once
// The preferences: six pages behind their tabs, and OK below.

#include "platform/qt/form_view.h"

namespace lumidex {

class PreferencesView final : public FormView {
 public:
  PreferencesView(FormViews& views, Form& form);
};

}  // namespace lumidex
