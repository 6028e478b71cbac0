#pragma once
// The dialog that changes brightness and contrast.

#include "forms/adjustment_window.h"

namespace lumidex {

struct frmAdjustContrastandBrightnessWindow : AdjustmentWindow {
  explicit frmAdjustContrastandBrightnessWindow(Platform& platform)
      : AdjustmentWindow(platform, "frmAdjustContrastandBrightness",
                         "Image Brightness and Contrast Adjustment", "Image Adjustments") {
    SetSteps(HScroll1);
    SetSteps(HScroll2);
    KeepDesign();
  }

  Label lblBrightnessName{*this, "lblBrightnessName", "Brightness"};
  Slider HScroll1{*this, "HScroll1", leastAmount, mostAmount, 0};
  Label lblBrightness{*this, "lblBrightness", "0"};
  Label lblContrastName{*this, "lblContrastName", "Contrast"};
  Slider HScroll2{*this, "HScroll2", leastAmount, mostAmount, 0};
  Label lblContrast{*this, "lblContrast", "0"};
};

}  // namespace lumidex
