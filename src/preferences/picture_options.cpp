#include "preferences/picture_options.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "core/zoom_factor.h"
#include "forms/WPaper2.h"
#include "forms/checkjpg.h"
#include "forms/frmPreferences.h"
#include "imaging/current_picture.h"
#include "imaging/proper_names.h"

namespace lumidex {
namespace {

// The status bar tells, but not yet of a picture that is just being brought up. An empty name stands in any
// text, and does not count.
bool IsShown(const App& app, const std::string& path) {
  if (!app.displays.OnItsWay().empty()) return path == app.displays.OnItsWay();
  const std::string name = ProperFileName(app, path);
  return !name.empty() && InStr(app.WPaper2.StatusBar1.Panel(2).Text, name) > 0;
}

}  // namespace

void RedisplayForStretch(App& app) {
  const float factor = GetZoomFactor(app);
  app.displays.AskForPlace(factor);
  for (const ListBox* list : {&app.WPaper2.LstRight, &app.WPaper2.LstLeft}) {
    const std::string path = list->Text();
    if (!IsShown(app, path)) continue;
    app.displays.RunAgain(factor,
                          [&app, path] { DisplayCurrentImage(app, path, false, GetZoomFactor(app)); });
    return;
  }
}

void ShowThumbnailSize(App& app) {
  frmPreferencesWindow& form = app.frmPreferences;
  form.lblThumbNailSizeValue.Caption = "Size = " + Number(form.sldThumbNailSize.Value.Get());
}

void RefreshThumbnailPreview(App& app) {
  frmPreferencesWindow& form = app.frmPreferences;
  Gvbox& control = app.checkjpg.Picture1;
  const int size = form.sldThumbNailSize.Value;
  ShowThumbnailSize(app);
  form.Image1.Width = static_cast<float>(size);
  form.Image1.Height = static_cast<float>(size);
  control.Appearance = form.chkThumbNailStyle.Value == 1 ? 1 : 0;
  control.ThumbnailSize = size;
  // The last file may have been unreadable: then there is nothing to show, and the options stay usable.
  Picture sample;
  IgnoreError([&] { sample = control.Picture(); });
  form.Image1.Picture = sample;
  control.ThumbnailSize = 0;
  control.Appearance = 0;
}

}  // namespace lumidex
