#include "auxiliary/vendor_pages.h"

#include "base/run_time_error.h"
#include "forms/WPaper2.h"
#include "forms/frmBrowser.h"
#include "forms/vendor.h"

namespace lumidex {
namespace {

constexpr int pageCount = 3;
constexpr const char* titleStart = "Korvane Lumidex 2001 - ";
constexpr const char* workingTitle = "Korvane Lumidex 2001 - Working...";

std::string AddressOf(const frmBrowserWindow& window, int page) {
  const Field<std::string>* const addresses[] = {&window.StartingAddress1, &window.StartingAddress2,
                                                 &window.StartingAddress3};
  return *addresses[page];
}

}  // namespace

void OpenVendorPages(App& app, int tab) {
  frmBrowserWindow& window = app.frmBrowser;
  window.StartingAddress1 = VendorPage("/");
  window.StartingAddress2 = VendorPage("/Lumidex/download.htm");
  window.StartingAddress3 = VendorPage("/photo-site/index.htm");
  window.Load();
  window.tabBrowser.Tab = tab;
  window.Show();
  window.BringToFront();
}

void PrepareBrowserWindow(App& app) {
  frmBrowserWindow& window = app.frmBrowser;
  // The caption has its design again, so the title is not the one before.
  window.PreviousTitle = std::string();
  IgnoreError([&] { window.Icon = app.WPaper2.Icon.Get(); });
  IgnoreError([&] { FitBrowserWindow(app); });
  // Somebody has closed it in the yield.
  if (!window.IsLoaded()) return;
  const Label& label = window.lblAddress;
  IgnoreError([&] {
    constexpr float left = 50, gap = 15;
    window.cboAddress.Left = left;
    window.cboAddress.Top = label.Top + label.Height + gap;
  });
  bool hasAddress = false;
  for (int page = 0; page < pageCount; ++page) hasAddress = hasAddress || !AddressOf(window, page).empty();
  if (hasAddress) {
    IgnoreError([&] { window.timTimer.Enabled = true; });
    for (int page = 0; page < pageCount; ++page) {
      IgnoreError([&] { window.brwWebBrowser(page).Navigate(AddressOf(window, page)); });
    }
  }
  IgnoreError([&] { window.State = WindowState::Maximized; });
}

void FitBrowserWindow(App& app) {
  frmBrowserWindow& window = app.frmBrowser;
  if (window.State == WindowState::Minimized) return;
  TabStrip& tabs = window.tabBrowser;
  tabs.Top = 500;
  tabs.Left = 100;
  tabs.Width = window.ScaleWidth() - 200;
  tabs.Height = window.ScaleHeight() - 600;
  app.platform.events.Yield();
  for (int page = 0; page < pageCount; ++page) {
    window.brwWebBrowser(page).Width = tabs.Width - 400;
    window.brwWebBrowser(page).Height = tabs.Height - 600;
  }
}

void FollowPages(App& app) {
  frmBrowserWindow& window = app.frmBrowser;
  // A browser that has failed has no name to tell; the title stays.
  IgnoreError([&] {
    bool isBusy = false;
    for (int page = 0; page < pageCount; ++page) isBusy = window.brwWebBrowser(page).Busy() || isBusy;
    if (isBusy) window.Title = workingTitle;
    for (int page = 0; page < pageCount && !isBusy; ++page) {
      if (window.tabBrowser.Tab == page)
        window.Title = titleStart + window.brwWebBrowser(page).LocationName();
    }
    const std::string& title = window.Title;
    if (title != std::string(window.PreviousTitle)) {
      window.Caption = title;
      window.PreviousTitle = title;
    }
  });
  app.platform.events.Yield();
}

}  // namespace lumidex
