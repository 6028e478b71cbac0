#pragma once
// Which view shows which form.

#include <memory>

#include "platform/qt/form_view.h"

namespace lumidex {

// Null for forms that never have a window. A form without a view of its own gets the plain one.
std::unique_ptr<FormView> MakeView(FormViews& views, Form& form);

}  // namespace lumidex
