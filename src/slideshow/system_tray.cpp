#include "slideshow/system_tray.h"

#include <algorithm>
#include <string_view>

#include "base/run_time_error.h"
#include "base/text.h"
#include "base/widths.h"
#include "forms/WPaper2.h"
#include "forms/frmSystemTray.h"

namespace lumidex {
namespace {

void PopUpLeft(App& app) {
  frmSystemTrayWindow& tray = app.frmSystemTray;
  const bool hasEntries = Val(app.WPaper2.lblCount.Caption.Get()) >= 1;
  for (MenuItem* item : {&tray.mnuNextImage, &tray.mnuPreviousImage, &tray.mnuFullScreenSlideShow,
                         &tray.mnuSlideShowInterval}) {
    item->Enabled = hasEntries;
  }
  app.platform.popup.PopupMenu(tray.hwnd(), tray.mnuLPopup.hwnd());
}

void PopUpRight(App& app) {
  frmSystemTrayWindow& tray = app.frmSystemTray;
  const WindowState state = app.WPaper2.State;
  tray.mnuRestore.Enabled = state != WindowState::Normal;
  tray.mnuMaximize.Enabled = state != WindowState::Maximized;
  tray.mnuMinimize.Enabled = state != WindowState::Minimized;
  app.platform.popup.PopupMenu(tray.hwnd(), tray.mnuPopUpSys.hwnd());
}

void BringUpMaximized(App& app) {
  app.WPaper2.State = WindowState::Maximized;
  app.platform.windows.SetForegroundWindow(app.WPaper2.hwnd());
  app.WPaper2.Show();
  app.WPaper2.Refresh();
}

}  // namespace

void AddTrayIcon(App& app) {
  TrayIconRecord& record = app.frmSystemTray.IconRecord;
  record = {};
  record.cbSize = TrayIconRecord::Size;
  record.hWnd = app.frmSystemTray.hwnd();
  record.uID = 1;
  record.uFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP;
  record.uCallbackMessage = WM_MOUSEMOVE;
  record.hIcon = app.WPaper2.Icon;
  constexpr std::string_view tip{"Korvane Lumidex 2001\0", 21};
  record.szTip.fill(' ');
  std::ranges::copy(tip, record.szTip.begin());
  app.platform.tray.Shell_NotifyIconA(NIM_ADD, record);
}

void DeleteTrayIcon(App& app) {
  app.platform.tray.Shell_NotifyIconA(NIM_DELETE, app.frmSystemTray.IconRecord);
}

void frmSystemTray_MouseMove(App& app, float x) {
  IgnoreError([&] {
    switch (ToInt32(static_cast<double>(x / twipsPerPixel))) {
      case WM_LBUTTONDOWN:
        return PopUpLeft(app);
      case WM_LBUTTONDBLCLK:
        return BringUpMaximized(app);
      case WM_RBUTTONDOWN:
        return PopUpRight(app);
      default:
        return;
    }
  });
}

}  // namespace lumidex
