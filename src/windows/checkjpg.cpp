// The events of the hidden form with the scratch image controls.

#include "forms/checkjpg.h"
#include "base/text.h"
#include "forms/WPaper2.h"
#include "windows/windows.h"

namespace lumidex {

void Wirecheckjpg(App& app) {
  checkjpgWindow& form = app.checkjpg;
  form.OnLoad = [&] { form.Icon = app.WPaper2.Icon.Get(); };
  app.WPaper2.mnusg.OnClick = [&] { form.Show(); };
  form.Picture1.OnImageChanged = [&] {
    form.Label1(0).Caption = Number(form.Picture1.PictureHeight());
    form.Label1(1).Caption = Number(form.Picture1.PictureWidth());
    form.Label1(2).Caption = Number(form.Picture1.ZoomLevel.Get());
  };
}

}  // namespace lumidex
