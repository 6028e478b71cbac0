// The events of the window in which a slide show fills the screen: its layout, and its end by any click.

#include "forms/frmSlideShowFullScreen.h"
#include "core/topmost.h"
#include "slideshow/slide_show.h"
#include "windows/windows.h"

namespace lumidex {
namespace {

void LayOut(frmSlideShowFullScreenWindow& window) {
  window.picImage.Move(0, 0, window.ScaleWidth(), window.ScaleHeight());
  window.lblFileName.Left = 0;
  window.lblFileName.Width = window.ScaleWidth();
  window.lblFileName.Height = window.cmdClose.Height;
  window.lblFileName.Visible = false;
}

void Form_Activate(App& app) {
  MakeWindowTopmost(app, app.frmSlideShowFullScreen.hwnd());
  LayOut(app.frmSlideShowFullScreen);
  app.platform.events.Yield();
}

void cmdClose_Click(App& app) {
  app.SlideShowRestart = false;
  mnuSlideShowFullScreen_Click(app);
  app.platform.events.Yield();
  app.frmSlideShowFullScreen.Hide();
}

}  // namespace

void WirefrmSlideShowFullScreen(App& app) {
  frmSlideShowFullScreenWindow& window = app.frmSlideShowFullScreen;
  window.OnActivate = [&] { Form_Activate(app); };
  // A screen may change its size while the show runs.
  window.OnResize = [&window] { LayOut(window); };
  window.cmdClose.OnClick = [&] { cmdClose_Click(app); };
  window.imgImage.OnClick = window.imgImage.OnDblClick = [&] { cmdClose_Click(app); };
  window.picImage.OnClick = window.picImage.OnDblClick = [&] { cmdClose_Click(app); };
}

}  // namespace lumidex
