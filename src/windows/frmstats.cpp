// The events of the window that counts the Display list.

#include "forms/frmstats.h"

#include "forms/WPaper2.h"
#include "forms/frmBackground.h"
#include "forms/frmReport.h"
#include "reports/scan.h"
#include "windows/windows.h"

namespace lumidex {

void Wirefrmstats(App& app) {
  frmstatsWindow& window = app.frmstats;
  window.OnLoad = [&app, &window] { window.Image1.Picture = app.frmBackground.Image1.Picture.Get(); };
  window.OnActivate = [&app, &window] {
    window.Icon = app.WPaper2.Icon.Get();
    app.platform.events.Yield();
  };
  // The grid is emptied with its window.
  window.OnUnload = [&app, &window](bool&) {
    window.ScanRunning = false;
    ++window.closings;
    app.frmReport.Unload();
  };
  window.cmdScan.OnClick = [&app, &window] {
    window.ScanRunning = true;
    ScanFiles(app);
  };
  window.cmdReport.OnClick = [&app] { app.frmReport.Show(Modality::Modal); };
  window.cmdClose.OnClick = [&window] {
    window.ScanRunning = false;
    window.Unload();
  };
  app.WPaper2.mnuPictureImageSummary.OnClick = [&window] { window.Show(Modality::Modal); };
}

}  // namespace lumidex
