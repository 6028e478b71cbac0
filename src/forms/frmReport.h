#pragma once
// The table of the last scan.

#include "controls/form.h"

namespace lumidex {

struct frmReportWindow : Form {
  explicit frmReportWindow(Platform& platform)
      : Form(platform, "frmReport", "Korvane Lumidex - Image File Information Report ") {
    KeepDesign();
  }
};

}  // namespace lumidex
