#pragma once
// The dialog that changes the balance of the three colours.

#include "controls/form.h"

namespace lumidex {

struct frmAdjustColorBalanceWindow : Form {
  explicit frmAdjustColorBalanceWindow(Platform& platform)
      : Form(platform, "frmAdjustColorBalance", "Image Color Balance Adjustment") {
    KeepDesign();
  }
};

}  // namespace lumidex
