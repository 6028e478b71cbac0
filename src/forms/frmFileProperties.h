#pragma once
// The facts of the selected entry and a small picture of it.

#include "controls/form.h"

namespace lumidex {

struct frmFilePropertiesWindow : Form {
  explicit frmFilePropertiesWindow(Platform& platform)
      : Form(platform, "frmFileProperties", "Korvane Lumidex - File Properties") {
    KeepDesign();
  }
};

}  // namespace lumidex
