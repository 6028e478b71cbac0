// The events of the About window.

#include "forms/frmAbout.h"
#include "auxiliary/system_info.h"
#include "forms/WPaper2.h"
#include "forms/frmBackground.h"
#include "windows/windows.h"

namespace lumidex {

void WirefrmAbout(App& app) {
  frmAboutWindow& about = app.frmAbout;
  about.OnLoad = [&] {
    about.Caption = std::string("About ") + applicationTitle;
    about.Icon = app.WPaper2.Icon.Get();
    about.Image1.Picture = app.frmBackground.Image1.Picture.Get();
  };
  about.cmdOK.OnClick = [&] { about.Unload(); };
  about.cmdSysInfo.OnClick = [&] { StartSysInfo(app); };
  app.WPaper2.mnuHelpAbout.OnClick = [&] { about.Show(Modality::Modal); };
}

}  // namespace lumidex
