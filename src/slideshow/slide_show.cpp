#include "slideshow/slide_show.h"

#include "base/run_time_error.h"
#include "base/widths.h"
#include "forms/WPaper2.h"
#include "forms/frmSlideShowFullScreen.h"
#include "imaging/wallpaper.h"
#include "lists/image_lists.h"
#include "slideshow/full_screen_image.h"

namespace lumidex {
namespace {

void StartTimer(App& app) {
  Timer& timer = app.WPaper2.tmrSlideShow;
  timer.Enabled = true;
  timer.Interval = SlideShowPeriod(app);
}

void StopTimer(App& app) {
  Timer& timer = app.WPaper2.tmrSlideShow;
  timer.Enabled = false;
  timer.Interval = 0;
}

// The same on starting and on stopping: a show that ends leaves the full screen to its own close action.
void ShowOrHideFullScreen(App& app) {
  if (app.WPaper2.mnuSlideShowFullScreen.Checked) {
    app.frmSlideShowFullScreen.Show();
  } else {
    app.frmSlideShowFullScreen.Hide();
  }
}

void ShowFirstSlide(App& app) {
  app.platform.events.Yield();
  bool firstSlide = true;
  SlideShowStep(app, firstSlide);
}

void SelectMode(App& app, MenuItem& chosen) {
  WPaper2Window& window = app.WPaper2;
  for (MenuItem* item : {&window.mnuSlideShowViewerOnly, &window.mnuSlideshowDesktopCentered,
                         &window.mnuSlideshowDesktopStretched}) {
    item->Checked = item == &chosen;
  }
}

void TurnOrderRound(App& app) {
  for (MenuItem* item : {&app.WPaper2.mnuSlideShowForwardOrder, &app.WPaper2.mnuSlideShowReverseOrder}) {
    item->Checked = !item->Checked;
  }
}

}  // namespace

int SlideShowPeriod(App& app) {
  constexpr std::int16_t presetSeconds = 15;
  if (app.SlideShowInterval == 0) app.SlideShowInterval = presetSeconds;
  return ToInt16(app.SlideShowInterval * 1000);
}

void SlideShowStep(App& app, bool& firstSlide) {
  WPaper2Window& window = app.WPaper2;
  EventQueue& events = app.platform.events;
  // The list may be emptied in any of the yields, and with it goes the picture that the rest would work on.
  const bool hadEntries = window.LstRight.ListCount() > 0;
  const auto goesOn = [&] { return !hadEntries || window.LstRight.ListCount() > 0; };
  if (firstSlide) {
    firstSlide = false;
  } else if (window.mnuSlideShowForwardOrder.Checked) {
    NextImage(app);
  } else {
    PreviousImage(app);
  }
  if (goesOn() && window.mnuSlideshowDesktopCentered.Checked) {
    SetWallpaperCentered(app);
    events.Yield();
  }
  if (goesOn() && window.mnuSlideshowDesktopStretched.Checked) {
    SetWallpaperStretched(app);
    events.Yield();
  }
  if (goesOn() && window.mnuSlideShowFullScreen.Checked) {
    ShowFullScreenImage(app);
    events.Yield();
  }
  events.Yield();
}

void tmrSlideShow_Timer(App& app) {
  bool firstSlide = false;
  SlideShowStep(app, firstSlide);
  app.platform.events.Yield();
}

void mnuSlideShowRunSlideShow_Click(App& app) {
  IgnoreError([&] {
    MenuItem& item = app.WPaper2.mnuSlideShowRunSlideShow;
    if (app.SlideShowRestart) {
      item.Checked = true;
      app.SlideShowRestart = false;
    }
    item.Checked = !item.Checked;
    app.SlideShowBusy = true;
    if (item.Checked) {
      item.Caption = "S&top Slide Show";
      StartTimer(app);
      ShowOrHideFullScreen(app);
      ShowFirstSlide(app);
    } else {
      app.SlideShowBusy = false;
      item.Caption = "S&tart Slide Show";
      StopTimer(app);
      ShowOrHideFullScreen(app);
    }
  });
}

void mnuSlideShowFullScreen_Click(App& app) {
  MenuItem& item = app.WPaper2.mnuSlideShowFullScreen;
  item.Checked = !item.Checked;
  if (item.Checked) {
    app.SlideShowBusy = true;
    app.frmSlideShowFullScreen.Show();
    item.Caption = "&Stop Full Screen Slide Show";
    StartTimer(app);
    ShowFirstSlide(app);
  } else {
    app.SlideShowBusy = false;
    item.Caption = "&Start Full Screen Slide Show";
    StopTimer(app);
    app.frmSlideShowFullScreen.Hide();
  }
}

void mnuSlideShowViewerOnly_Click(App& app) {
  SelectMode(app, app.WPaper2.mnuSlideShowViewerOnly);
}
void mnuSlideshowDesktopCentered_Click(App& app) {
  SelectMode(app, app.WPaper2.mnuSlideshowDesktopCentered);
}
void mnuSlideshowDesktopStretched_Click(App& app) {
  SelectMode(app, app.WPaper2.mnuSlideshowDesktopStretched);
}

void mnuSlideShowForwardOrder_Click(App& app) {
  TurnOrderRound(app);
}
void mnuSlideShowReverseOrder_Click(App& app) {
  TurnOrderRound(app);
}

}  // namespace lumidex
