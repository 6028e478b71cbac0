// The events of the zoom viewer, and its opening.

#include "forms/frmZoomView.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "forms/WPaper2.h"
#include "imaging/zoom_viewer.h"
#include "lists/image_lists.h"
#include "windows/windows.h"

namespace lumidex {
namespace {

void Form_Load(App& app) {
  frmZoomViewWindow& viewer = app.frmZoomView;
  ++viewer.Openings;
  viewer.Icon = app.WPaper2.Icon.Get();
  // A viewing that ended at another zoom, or without caption and menus, is gone on with.
  TickZoomLevel(viewer, viewer.TickedLevel);
  if (viewer.FullScreenOn) ShowZoomFullScreenState(app);
  // Names without a directory are looked for there from now on. A folder that can't be entered is left alone.
  IgnoreError([&] { app.platform.files.ChDir(app.AppPath); });
  app.platform.events.Yield();
}

void Form_Activate(App& app) {
  frmZoomViewWindow& viewer = app.frmZoomView;
  viewer.Icon = app.WPaper2.Icon.Get();
  SizeZoomPicture(app);
  viewer.Gvbox1.ZoomLevel = 1;
  viewer.Gvbox1.SetFocus();
  viewer.ImageFilePath = app.CurrentImagePath;
  ShowImageNailInfo(app, app.CurrentImagePath);
  app.platform.events.Yield();
}

void mnuPictureViewer_Click(App& app) {
  if (Val(app.WPaper2.lblCount.Caption.Get()) < 1) return;
  frmZoomViewWindow& viewer = app.frmZoomView;
  viewer.Load();
  viewer.Gvbox1.SetPicture(app.WPaper2.Image1.Picture);
  viewer.Show(Modality::Modal);
  DisplayListClick(app);
}

}  // namespace

void WirefrmZoomView(App& app) {
  frmZoomViewWindow& viewer = app.frmZoomView;
  viewer.OnLoad = [&] { Form_Load(app); };
  viewer.OnActivate = [&] { Form_Activate(app); };
  viewer.OnResize = [&] { FitZoomViewer(app); };
  viewer.mnuPictureCloseViewer.OnClick = [&] { viewer.Unload(); };
  viewer.mnuZoomToolbar.OnClick = [&] { ToggleZoomToolbar(app); };
  viewer.mnuViewFullScreen.OnClick = [&] { ToggleZoomFullScreen(app); };
  viewer.mnuZoomLevel.Wire(
      [&](MenuItem& item, int level) { item.OnClick = [&app, level] { SelectZoomFromMenu(app, level); }; });
  viewer.tlbZoom.OnButtonClick = [&](const std::string&, int button) { PressZoomButton(app, button); };
  viewer.Gvbox1.OnKeyDown = [&](int keyCode) { ScrollByKey(app, keyCode); };
  viewer.Gvbox1.OnMouseUp = [&](int, int, float x, float y) { ReadOutPixel(app, x, y); };
  viewer.cmdZoomDown.OnClick = [&] { ZoomDown(app); };
  app.WPaper2.mnuPictureViewer.OnClick = [&] { mnuPictureViewer_Click(app); };
}

}  // namespace lumidex
