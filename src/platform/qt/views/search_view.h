#pragma once
// The small window of a running search: a picture that plays, what goes on, and Cancel.

#include "forms/frmlocatefiles.h"
#include "platform/qt/typed_view.h"

namespace lumidex {

class SearchView final : public TypedView<frmlocatefilesWindow> {
 public:
  SearchView(FormViews& views, frmlocatefilesWindow& form);
};

}  // namespace lumidex
