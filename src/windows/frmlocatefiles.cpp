// The events of the small search window.

#include "forms/frmlocatefiles.h"
#include "base/run_time_error.h"
#include "core/topmost.h"
#include "windows/windows.h"

namespace lumidex {

void Wirefrmlocatefiles(App& app) {
  frmlocatefilesWindow& window = app.frmlocatefiles;
  window.OnLoad = [&] {
    MakeWindowTopmost(app, window.hwnd());
    // An installation that lacks it still searches.
    IgnoreError([&] { window.Animation1.Open(app.AppPath + "findcomp.avi"); });
  };
  window.CancelButton.OnClick = [&] {
    app.SearchRunning = false;
    window.Hide();
  };
  // The frame's close button asks for the same as Cancel.
  window.OnQueryUnload = [&](bool& cancel) {
    if (app.exiting) return;
    cancel = true;
    app.SearchRunning = false;
    window.Hide();
  };
}

}  // namespace lumidex
