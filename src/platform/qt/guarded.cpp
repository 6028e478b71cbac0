#include "platform/qt/guarded.h"

#include <exception>

#include "platform/qt/form_view.h"

namespace lumidex {

void RunGuarded(EventQueue& events, const std::function<void()>& work) {
  try {
    work();
  } catch (const std::exception&) {
    events.Post([raised = std::current_exception()] { std::rethrow_exception(raised); });
  }
}

void PaintGuarded(QWidget& widget, const std::function<void()>& paint) {
  if (auto* view = dynamic_cast<FormView*>(widget.window())) {
    RunGuarded(view->GetForm().GetPlatform().events, paint);
  } else {
    paint();
  }
}

}  // namespace lumidex
