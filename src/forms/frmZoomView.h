#pragma once
// The zoom viewer.

#include "controls/form.h"

namespace lumidex {

struct frmZoomViewWindow : Form {
  explicit frmZoomViewWindow(Platform& platform)
      : Form(platform, "frmZoomView", "Korvane Lumidex - Full Screen Zoom Viewer") {
    KeepDesign();
  }
};

}  // namespace lumidex
