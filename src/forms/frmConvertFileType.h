#pragma once
// The dialog that asks what a batch is converted to.

#include "controls/form.h"

namespace lumidex {

struct frmConvertFileTypeWindow : Form {
  explicit frmConvertFileTypeWindow(Platform& platform)
      : Form(platform, "frmConvertFileType", "Convert File Type") {
    KeepDesign();
  }
};

}  // namespace lumidex
