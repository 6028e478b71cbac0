#pragma once
// The thumbnail viewer: the Display list as pages of small pictures.

#include "controls/form.h"

namespace lumidex {

struct frmThumbNailWindow : Form {
  explicit frmThumbNailWindow(Platform& platform)
      : Form(platform, "frmThumbNail", "Korvane Lumidex - ThumbNail Viewer") {
    KeepDesign();
  }
};

}  // namespace lumidex
