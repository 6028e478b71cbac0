#include "windows/start_and_exit.h"

#include "base/run_time_error.h"
#include "forms/SelectPictureDirectoryForm.h"
#include "forms/WPaper2.h"
#include "forms/checkjpg.h"
#include "forms/frmAbout.h"
#include "forms/frmAdjustColorBalance.h"
#include "forms/frmAdjustContrastandBrightness.h"
#include "forms/frmBackground.h"
#include "forms/frmFileProperties.h"
#include "forms/frmMakeThumbNails.h"
#include "forms/frmPreferences.h"
#include "forms/frmSplash.h"
#include "forms/frmSystemTray.h"
#include "forms/frmThumbNail.h"
#include "forms/frmZoomView.h"
#include "forms/frmstats.h"
#include "lists/list_files.h"
#include "preferences/settings_file.h"

namespace lumidex {

void CheckPrevInstance(App& app) {
  if (app.platform.process.HasPreviousInstance()) app.platform.events.EndProcess(0);
}

void SaveSettingsAndList(App& app) {
  app.SavingSettings = true;
  WriteSettings(app);
  if (app.CommandLineMode) return;
  SaveStandardList(app);
  app.SavingSettings = false;
}

void ExitProgram(App& app) {
  app.exiting = true;
  SaveSettingsAndList(app);
  while (app.SavingSettings) app.platform.events.Stall();
  for (Form* form : std::initializer_list<Form*>{
           &app.frmSystemTray, &app.checkjpg, &app.frmAbout, &app.frmAdjustColorBalance,
           &app.frmAdjustContrastandBrightness, &app.frmFileProperties, &app.frmMakeThumbNails,
           &app.frmSplash, &app.frmstats, &app.frmThumbNail, &app.frmZoomView,
           &app.SelectPictureDirectoryForm, &app.frmBackground, &app.WPaper2, &app.frmPreferences}) {
    form->Unload();
  }
  app.platform.events.EndProcess(0);
}

namespace {

bool HasStood(const App& app) {
  return app.WPaper2.Visible() || app.WPaper2.WindowActivatedOnce;
}

}  // namespace

void EndFromOutside(App& app) {
  if (app.exiting) return;
  if (!HasStood(app)) app.platform.events.EndProcess(0);
  app.WPaper2.UserClose();
}

void SaveBeforeLeaving(App& app) {
  if (app.exiting || app.CommandLineMode || !HasStood(app)) return;
  IgnoreError([&] { SaveSettingsAndList(app); });
}

}  // namespace lumidex
