#pragma once
// A view that holds its window under the window's own type, so that it reaches the controls as members.

#include "platform/qt/form_view.h"

namespace lumidex {

template <class Window, class Base = FormView>
class TypedView : public Base {
 public:
  template <class... Options>
  explicit TypedView(FormViews& views, Window& itsForm, Options&&... options)
      : Base(views, itsForm, std::forward<Options>(options)...), form(itsForm) {}

 protected:
  Window& form;
};

}  // namespace lumidex
