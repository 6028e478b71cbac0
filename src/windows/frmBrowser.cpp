// The events of the window with the vendor's pages, and the items that open it.

#include "forms/frmBrowser.h"
#include "auxiliary/vendor_pages.h"
#include "forms/WPaper2.h"
#include "windows/windows.h"

namespace lumidex {
namespace {

// The address box tells no address and leads nowhere.
void cboAddress_Click() {}

}  // namespace

void WirefrmBrowser(App& app) {
  frmBrowserWindow& window = app.frmBrowser;
  window.OnLoad = [&] { PrepareBrowserWindow(app); };
  window.OnResize = [&] { FitBrowserWindow(app); };
  window.timTimer.OnTimer = [&] { FollowPages(app); };
  window.cboAddress.OnClick = [] { cboAddress_Click(); };
  window.cboAddress.OnKeyPress = [](int key) {
    constexpr int enter = 13;
    if (key == enter) cboAddress_Click();
  };
  WPaper2Window& main = app.WPaper2;
  main.mnuHelpHomePage.OnClick = [&] { OpenVendorPages(app, 0); };
  main.mnuHelpDownloadLatestVersion.OnClick = [&] { OpenVendorPages(app, 1); };
  main.mnuHelpPictureLibrary.OnClick = [&] { OpenVendorPages(app, 2); };
}

}  // namespace lumidex
