#pragma once
// The small window of a running search: a picture that plays, what goes on, and Cancel.

#include "platform/qt/form_view.h"

namespace lumidex {

class SearchView final : public FormView {
 public:
  SearchView(FormViews& views, Form& form);
};

}  // namespace lumidex
