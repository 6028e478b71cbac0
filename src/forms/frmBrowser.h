#pragma once
// The window with the vendor's three pages.

#include "controls/form.h"

namespace lumidex {

struct frmBrowserWindow : Form {
  explicit frmBrowserWindow(Platform& platform) : Form(platform, "frmBrowser") { KeepDesign(); }
};

}  // namespace lumidex
