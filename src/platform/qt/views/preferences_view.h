#pragma once
// The preferences: six pages behind their tabs, and OK below.

#include "forms/frmPreferences.h"
#include "platform/qt/typed_view.h"

namespace lumidex {

class PreferencesView final : public TypedView<frmPreferencesWindow> {
 public:
  PreferencesView(FormViews& views, frmPreferencesWindow& form);
};

}  // namespace lumidex
