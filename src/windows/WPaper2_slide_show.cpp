// The main window's slide show: its menu, its timer, and the screen that stays awake meanwhile.

#include "forms/WPaper2.h"
#include "forms/checkjpg.h"
#include "slideshow/interval_prompt.h"
#include "slideshow/slide_show.h"
#include "windows/windows.h"

namespace lumidex {
namespace {

// Told by the timer, which is what every way of starting and stopping a show ends in.
void KeepScreenAwake(App& app) {
  WPaper2Window& window = app.WPaper2;
  const bool runs = window.tmrSlideShow.Enabled && window.tmrSlideShow.Interval > 0;
  if (runs == window.KeepsScreenAwake) return;
  window.KeepsScreenAwake = runs;
  app.platform.desktop.KeepScreenAwake(runs);
}

}  // namespace

void WireSlideShow(App& app) {
  WPaper2Window& window = app.WPaper2;
  window.mnuSlideShowFullScreen.OnClick = [&] { mnuSlideShowFullScreen_Click(app); };
  window.mnuSlideShowRunSlideShow.OnClick = [&] { mnuSlideShowRunSlideShow_Click(app); };
  window.mnuSlideShowViewerOnly.OnClick = [&] { mnuSlideShowViewerOnly_Click(app); };
  window.mnuSlideshowDesktopCentered.OnClick = [&] { mnuSlideshowDesktopCentered_Click(app); };
  window.mnuSlideshowDesktopStretched.OnClick = [&] { mnuSlideshowDesktopStretched_Click(app); };
  window.mnuSlideShowForwardOrder.OnClick = [&] { mnuSlideShowForwardOrder_Click(app); };
  window.mnuSlideShowReverseOrder.OnClick = [&] { mnuSlideShowReverseOrder_Click(app); };
  window.mnuSlideShowInterval.OnClick = [&] { mnuSlideShowInterval_Click(app); };
  window.mnusg.OnClick = [&] { app.checkjpg.Show(); };
  window.tmrSlideShow.OnTimer = [&] { tmrSlideShow_Timer(app); };
  window.SlideShowWatch = window.tmrSlideShow.Changed.Connect([&] { KeepScreenAwake(app); });
}

}  // namespace lumidex
