#include "preferences/pages.h"

#include "forms/frmPreferences.h"

namespace lumidex {

void OpenPreferencesPage(App& app, int tab) {
  app.frmPreferences.SSTab1.Tab = tab;
  app.frmPreferences.Show(Modality::Modal);
}

}  // namespace lumidex
