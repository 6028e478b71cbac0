#pragma once
// The form without a size that owns the icon in the notification area.

#include "controls/form.h"

namespace lumidex {

struct frmSystemTrayWindow : Form {
  explicit frmSystemTrayWindow(Platform& platform) : Form(platform, "frmSystemTray") { KeepDesign(); }
};

}  // namespace lumidex
