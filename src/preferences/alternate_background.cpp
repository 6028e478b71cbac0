#include "preferences/alternate_background.h"

#include "base/run_time_error.h"
#include "core/paths.h"
#include "forms/WPaper2.h"
#include "forms/frmPreferences.h"
#include "imaging/save_picture.h"

namespace lumidex {
namespace {

std::string KeptPath(const App& app) {
  return app.AppPath + "MenuVBgd.Bmp";
}

}  // namespace

bool ShowAlternateBackground(App& app) {
  const std::string path = KeptPath(app);
  if (!FileExists(app, path)) return false;
  app.WPaper2.Picture = app.platform.loader.LoadPicture(path);
  return true;
}

void SwitchAlternateBackground(App& app) {
  frmPreferencesWindow& form = app.frmPreferences;
  form.cmdMenuSelect.Enabled = form.chkMenuAltBackground.Value == 1;
  if (form.cmdMenuSelect.Enabled) {
    ShowAlternateBackground(app);
  } else {
    app.WPaper2.Picture = Picture();
  }
}

void ChooseAlternateBackground(App& app) {
  IgnoreError([&] {
    CommonDialog& dialog = app.WPaper2.CMDialog1;
    // The dialog is shared with the lists and the saves, whose title does not fit here.
    dialog.DialogTitle = "";
    dialog.DefaultExt = "";
    dialog.FileName = "";
    dialog.Filter = "All Files (*.bmp,*.rle,*.jpg,*.gif)|*.bmp;*.rle;*.jpg;*.gif|";
    dialog.FilterIndex = 1;
    dialog.ShowOpen();
    if (dialog.FileName.Get().empty()) return;
    app.WPaper2.Picture = app.platform.loader.LoadPicture(dialog.FileName);
    const std::string path = KeptPath(app);
    if (FileExists(app, path)) app.platform.files.Remove(path);
    SavePicture(app, app.WPaper2.Picture, path);
  });
}

}  // namespace lumidex
