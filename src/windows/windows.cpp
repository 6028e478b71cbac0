#include "windows/windows.h"

#include "core/default_report.h"

namespace lumidex {

void WireWindows(App& app) {
  app.platform.events.Guard = [&app](const EventQueue::Work& work) { RunEvent(app, work); };
  WireWPaper2(app);
  WireSelectPictureDirectoryForm(app);
  WirefrmSplash(app);
  WirefrmTip(app);
  Wirefrmlocatefiles(app);
  Wirecheckjpg(app);
  WirefrmPreferences(app);
  WireListFiles(app);
}

}  // namespace lumidex
