#pragma once
// The dialog that changes the balance of the three colours.

#include "forms/adjustment_window.h"

namespace lumidex {

struct frmAdjustColorBalanceWindow : AdjustmentWindow {
  explicit frmAdjustColorBalanceWindow(Platform& platform)
      : AdjustmentWindow(platform, "frmAdjustColorBalance", "Image Color Balance Adjustment",
                         "Image Color Adjustment") {
    for (auto& slider : HScroll3) SetSteps(*slider);
    KeepDesign();
  }

  Label lblRed{*this, "lblRed", "Red"};
  Label lblGreen{*this, "lblGreen", "Green"};
  Label lblBlue{*this, "lblBlue", "Blue"};
  // 0 red, 1 green, 2 blue.
  ControlArray<Slider> HScroll3{*this, "HScroll3", 0, 2, leastAmount, mostAmount, 0};
  Label lblRedBalance{*this, "lblRedBalance", "0"};
  Label lblGreenBalance{*this, "lblGreenBalance", "0"};
  Label lblBlueBalance{*this, "lblBlueBalance", "0"};
};

}  // namespace lumidex
