// The events of the tip window.

#include "forms/frmTip.h"
#include "auxiliary/tips.h"
#include "base/run_time_error.h"
#include "core/topmost.h"
#include "forms/WPaper2.h"
#include "windows/windows.h"

namespace lumidex {
namespace {

// Asking for a tip by hand switches the showing at start on again.
void mnuHelpTipOfTheDay_Click(App& app) {
  IgnoreError([&] {
    StoreShowsTipsAtStartup(app, 1);
    app.frmTip.Show();
  });
}

}  // namespace

void WirefrmTip(App& app) {
  frmTipWindow& window = app.frmTip;
  window.OnLoad = [&] { PrepareTipWindow(app); };
  window.OnActivate = [&] {
    MakeWindowTopmost(app, window.hwnd());
    // Enter closes the tip, wherever it came from.
    if (!window.ActiveControl()) window.cmdOK.SetFocus();
  };
  window.cmdNextTip.OnClick = [&] { DoNextTip(app); };
  window.cmdOK.OnClick = [&] { window.Unload(); };
  window.chkLoadTipsAtStartup.OnClick = [&] {
    StoreShowsTipsAtStartup(app, window.chkLoadTipsAtStartup.Value);
  };
  app.WPaper2.mnuHelpTipOfTheDay.OnClick = [&app] { mnuHelpTipOfTheDay_Click(app); };
}

}  // namespace lumidex
