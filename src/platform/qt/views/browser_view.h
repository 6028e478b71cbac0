#pragma once
// The window with the vendor's pages: its name and address box above the tabs with the pages.

#include "forms/frmBrowser.h"
#include "platform/qt/typed_view.h"

namespace lumidex {

class BrowserView final : public TypedView<frmBrowserWindow> {
 public:
  BrowserView(FormViews& views, frmBrowserWindow& form);
  ~BrowserView() override;
};

}  // namespace lumidex
