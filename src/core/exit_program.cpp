#include "core/exit_program.h"

#include "core/list_files.h"
#include "core/settings_file.h"

namespace lumidex {

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

}  // namespace lumidex
