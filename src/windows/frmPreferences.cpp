// The events of the preferences.

#include "windows/windows.h"

namespace lumidex {

void WirefrmPreferences(App& app) {
  frmPreferencesWindow& form = app.frmPreferences;
  form.cmdOK.OnClick = [&] { form.Hide(); };
  // Its controls are the home of the options, so the frame only hides it.
  form.OnQueryUnload = [&](bool& cancel) {
    if (app.exiting) return;
    cancel = true;
    form.Hide();
  };
}

}  // namespace lumidex
