#pragma once
// The dialog that changes brightness and contrast.

#include "controls/form.h"

namespace lumidex {

struct frmAdjustContrastandBrightnessWindow : Form {
  explicit frmAdjustContrastandBrightnessWindow(Platform& platform)
      : Form(platform, "frmAdjustContrastandBrightness", "Image Brightness and Contrast Adjustment") {
    KeepDesign();
  }
};

}  // namespace lumidex
