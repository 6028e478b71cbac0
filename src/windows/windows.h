#pragma once
// The wiring: which event of which window runs which routine.

#include "forms/app.h"

namespace lumidex {

// Gives every event of every form its handler and sends uncaught errors to the default report. Called once,
// before the first form is loaded.
void WireWindows(App& app);

void WireWPaper2(App& app);
void WireSelectPictureDirectoryForm(App& app);
void WirefrmSplash(App& app);
void WirefrmAbout(App& app);
void WirefrmBrowser(App& app);
void WireHelp(App& app);
void WirefrmTip(App& app);
void Wirefrmlocatefiles(App& app);
void Wirecheckjpg(App& app);
void WirefrmPreferences(App& app);
void WireListFiles(App& app);
void WireBatch(App& app);
void Wirefrmstats(App& app);
void WirefrmReport(App& app);
void WireEditing(App& app);
void WirefrmAdjustColorBalance(App& app);
void WirefrmAdjustContrastandBrightness(App& app);
void WirefrmFileProperties(App& app);
void WirefrmZoomView(App& app);
void WirefrmThumbNail(App& app);
void WireSlideShow(App& app);
void WireDesktop(App& app);
void WirefrmSlideShowFullScreen(App& app);
void WirefrmSystemTray(App& app);

}  // namespace lumidex
