// The events of the splash window.

#include "forms/frmSplash.h"
#include "forms/WPaper2.h"
#include "forms/frmBackground.h"
#include "windows/windows.h"

namespace lumidex {

void WirefrmSplash(App& app) {
  frmSplashWindow& splash = app.frmSplash;
  splash.OnLoad = [&] {
    splash.SplashStart = app.platform.clock.TimeOfDay();
    splash.Image1.Picture = app.frmBackground.Image1.Picture.Get();
  };
  splash.Timer1.OnTimer = [&] {
    constexpr double mostSeconds = 10;
    if (app.platform.clock.TimeOfDay() - splash.SplashStart >= mostSeconds) splash.Unload();
  };
  app.WPaper2.mnuHelpDisplaySplashScreen.OnClick = [&] {
    splash.Load();
    // It stays until the user closes it.
    splash.Timer1.Enabled = false;
    splash.Show();
  };
  splash.cmdClose.OnClick = [&] { splash.Unload(); };
}

}  // namespace lumidex
