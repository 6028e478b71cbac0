#pragma once
// A chooser of the directory for a batch; nothing opens it.

#include "controls/form.h"

namespace lumidex {

struct frmSelectBatchDirWindow : Form {
  explicit frmSelectBatchDirWindow(Platform& platform)
      : Form(platform, "frmSelectBatchDir", "Korvane Lumidex - Select Batch Directory") {
    KeepDesign();
  }
};

}  // namespace lumidex
