#include "preferences/toolbar_list.h"

#include "forms/WPaper2.h"
#include "forms/frmPreferences.h"

namespace lumidex {

void ApplyToolbarList(App& app) {
  const ListBox& list = app.frmPreferences.List1;
  for (int entry = 0; entry < list.ListCount(); ++entry) {
    app.WPaper2.Toolbar1.SetVisible(entry + 1, list.Selected(entry));
  }
}

}  // namespace lumidex
