// The events of the form without a size: its icon's life, what happens to the icon, and its menus' items.

#include "forms/frmSystemTray.h"
#include "forms/WPaper2.h"
#include "lists/image_lists.h"
#include "slideshow/interval_prompt.h"
#include "slideshow/slide_show.h"
#include "slideshow/system_tray.h"
#include "windows/start_and_exit.h"
#include "windows/windows.h"

namespace lumidex {
namespace {

void ShowMainWindowAs(App& app, WindowState state) {
  app.WPaper2.State = state;
  app.WPaper2.Show();
}

void WireLeftMenu(App& app) {
  frmSystemTrayWindow& tray = app.frmSystemTray;
  tray.mnuLoadList.OnClick = [&] { app.WPaper2.mnuFileLoad.Click(); };
  tray.mnuSaveList.OnClick = [&] { SaveSettingsAndList(app); };
  tray.mnuFullScreenSlideShow.OnClick = [&] { mnuSlideShowFullScreen_Click(app); };
  tray.mnuSlideShowInterval.OnClick = [&] { mnuSlideShowInterval_Click(app); };
  tray.mnuPreviousImage.OnClick = [&] { PreviousImage(app); };
  tray.mnuNextImage.OnClick = [&] { NextImage(app); };
}

void WireRightMenu(App& app) {
  frmSystemTrayWindow& tray = app.frmSystemTray;
  tray.mnuRestore.OnClick = [&] { ShowMainWindowAs(app, WindowState::Normal); };
  tray.mnuMaximize.OnClick = [&] { ShowMainWindowAs(app, WindowState::Maximized); };
  tray.mnuMinimize.OnClick = [&] { app.WPaper2.State = WindowState::Minimized; };
  tray.mnuExit.OnClick = [&] { ExitProgram(app); };
  tray.mnuAbout.OnClick = [&] { app.WPaper2.mnuHelpAbout.Click(); };
}

}  // namespace

void WirefrmSystemTray(App& app) {
  frmSystemTrayWindow& tray = app.frmSystemTray;
  tray.OnLoad = [&] {
    tray.Width = 1;
    tray.Height = 1;
  };
  tray.OnActivate = [&] { AddTrayIcon(app); };
  tray.OnUnload = [&](bool&) { DeleteTrayIcon(app); };
  tray.OnMouseMove = [&](int, int, float x, float) { frmSystemTray_MouseMove(app, x); };
  app.platform.tray.OnMouseMove = [&tray](WindowHandle window, float x, float y) {
    if (window == tray.hwnd()) tray.UserMouseMove({0, 0, x, y});
  };
  WireLeftMenu(app);
  WireRightMenu(app);
}

}  // namespace lumidex
