#pragma once
// The progress of a batch conversion.

#include "controls/form.h"

namespace lumidex {

struct frmConvertFileNameWindow : Form {
  explicit frmConvertFileNameWindow(Platform& platform) : Form(platform, "frmConvertFileName", "Form1") {
    KeepDesign();
  }
};

}  // namespace lumidex
