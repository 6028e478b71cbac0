#include "windows/WPaper2_layout.h"

#include "core/zoom_factor.h"
#include "forms/WPaper2.h"
#include "imaging/current_picture.h"

namespace lumidex {
namespace {

// A maximized window has to become a normal one before its size can be set.
void SetSide(WPaper2Window& window, Property<float>& side, float length) {
  const bool wasMaximized = window.State == WindowState::Maximized;
  if (wasMaximized) window.State = WindowState::Normal;
  side = length;
  if (wasMaximized) window.State = WindowState::Maximized;
}

void LayOut(WPaper2Window& window) {
  window.Picture1.Width = window.Width - window.Picture1.Left - window.rightMargin;
  window.Picture1.Height = window.Picture1.Width * window.pictureProportion;
  window.cmdUp.Top = window.Picture1.Top + window.Picture1.Height;
  window.cmdDown.Top = window.cmdUp.Top;
  window.LstLeft.Height = (window.Picture1.Height - window.lblSelectionList.Height - 1170) / 2;
  window.lblDisplayList.Top = window.LstLeft.Top + window.LstLeft.Height + 930;
  window.LstRight.Top = window.lblDisplayList.Top + window.lblDisplayList.Height;
  window.LstRight.Height = window.LstLeft.Height;
  window.cmdUp.Top = window.LstRight.Top + window.LstRight.Height;
  window.cmdDown.Top = window.cmdUp.Top;
  window.cmdRightOne.Top = window.LstLeft.Top + window.LstLeft.Height + 160;
  window.cmdLeftOne.Top = window.cmdRightOne.Top;
  window.cmdRightAll.Top = window.cmdRightOne.Top + window.cmdRightOne.Height;
  window.cmdLeftAll.Top = window.cmdRightAll.Top;
  window.lblCountLabel.Top = window.LstLeft.Top + window.LstLeft.Height + 60;
  window.lblCount.Top = window.lblCountLabel.Top + 255;
  window.lblItemUseLabel.Top = window.lblCount.Top + 285;
  window.CurrentPicture.Top = window.lblItemUseLabel.Top + 260;
  window.txtPrgTitle.Top = window.Height - window.titleAboveEdge;
}

void RedrawPicture(App& app) {
  WPaper2Window& window = app.WPaper2;
  app.CurrentImagePath = window.LstRight.Text();
  if (app.CurrentImagePath.empty()) {
    window.Image1.Width = window.Picture1.ScaleWidth();
    window.Image1.Height = window.Picture1.ScaleHeight();
  } else {
    app.displays.RunAgain(GetZoomFactor(app), [&app] {
      DisplayCurrentImage(app, app.WPaper2.LstRight.Text(), false, GetZoomFactor(app));
    });
  }
}

}  // namespace

void WPaper2_Resize(App& app) {
  WPaper2Window& window = app.WPaper2;
  const ScaleMode remembered = window.Scale;
  window.Scale = ScaleMode::Twips;
  window.Pointer = MousePointer::Hourglass;
  if (!(window.State == WindowState::Minimized)) {
    if (window.Height < window.leastHeight) SetSide(window, window.Height, window.leastHeight);
    if (window.Width < window.leastWidth) SetSide(window, window.Width, window.leastWidth);
    app.platform.events.Yield();
    LayOut(window);
    RedrawPicture(app);
  }
  app.platform.events.Yield();
  window.Scale = remembered;
  window.Pointer = MousePointer::Default;
  if (window.State == WindowState::Minimized) window.Hide();
}

void WPaper2_Click(App& app) {
  WPaper2Window& window = app.WPaper2;
  if (window.Height > app.platform.windows.ScreenHeight()) SetSide(window, window.Height, 0);
  app.platform.events.Yield();
}

}  // namespace lumidex
