#include "windows/windows.h"

#include "controls/form.h"
#include "core/default_report.h"

namespace lumidex {

void WireWindows(App& app) {
  app.platform.tray.OnMouseMove = [&app](WindowHandle window, float x, float y) {
    for (Form* form : app.Forms()) {
      if (form->hwnd() == window) form->UserMouseMove({0, 0, x, y});
    }
  };
  app.platform.events.Guard = [&app](const EventQueue::Work& work) { RunEvent(app, work); };
  WireWPaper2(app);
  WireSelectPictureDirectoryForm(app);
  WirefrmSplash(app);
  WirefrmAbout(app);
  WirefrmBrowser(app);
  WireHelp(app);
  WirefrmTip(app);
  Wirefrmlocatefiles(app);
  Wirecheckjpg(app);
  WirefrmPreferences(app);
  WireListFiles(app);
  WireBatch(app);
  Wirefrmstats(app);
  WirefrmReport(app);
  WireEditing(app);
  WirefrmAdjustColorBalance(app);
  WirefrmAdjustContrastandBrightness(app);
  WirefrmFileProperties(app);
  WirefrmZoomView(app);
  WirefrmThumbNail(app);
  WireSlideShow(app);
  WireDesktop(app);
  WirefrmSlideShowFullScreen(app);
  WirefrmSystemTray(app);
}

}  // namespace lumidex
