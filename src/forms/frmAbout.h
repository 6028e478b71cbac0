#pragma once
// What the product is, and the way to the system's own facts.

#include "controls/form.h"

namespace lumidex {

struct frmAboutWindow : Form {
  explicit frmAboutWindow(Platform& platform) : Form(platform, "frmAbout", "Korvane Lumidex - About") {
    KeepDesign();
  }
};

}  // namespace lumidex
