#pragma once
// The window in which a slide show fills the screen.

#include "controls/form.h"

namespace lumidex {

struct frmSlideShowFullScreenWindow : Form {
  explicit frmSlideShowFullScreenWindow(Platform& platform) : Form(platform, "frmSlideShowFullScreen") {
    KeepDesign();
  }
};

}  // namespace lumidex
