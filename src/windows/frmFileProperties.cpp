// The events of the properties dialog.

#include "forms/frmFileProperties.h"
#include "forms/WPaper2.h"
#include "forms/frmBackground.h"
#include "imaging/file_properties.h"
#include "windows/windows.h"

namespace lumidex {

void WirefrmFileProperties(App& app) {
  frmFilePropertiesWindow& dialog = app.frmFileProperties;
  dialog.OnLoad = [&] {
    ++dialog.Openings;
    dialog.Icon = app.WPaper2.Icon.Get();
    dialog.Image1.Picture = app.frmBackground.Image1.Picture.Get();
    app.platform.events.Yield();
  };
  dialog.OnActivate = [&] {
    ShowFileProperties(app);
    app.platform.events.Yield();
  };
  dialog.cmdClose.OnClick = [&] {
    dialog.Hide();
    dialog.Unload();
  };
  app.WPaper2.mnuFileProperties.OnClick = [&] { dialog.Show(Modality::Modal); };
}

}  // namespace lumidex
