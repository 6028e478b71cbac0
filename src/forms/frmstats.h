#pragma once
// The window that counts the Display list by type, size and depth.

#include "controls/form.h"

namespace lumidex {

struct frmstatsWindow : Form {
  explicit frmstatsWindow(Platform& platform) : Form(platform, "frmstats", "Korvane Lumidex - File Stats") {
    KeepDesign();
  }
};

}  // namespace lumidex
