#pragma once
// The progress of a batch conversion.

#include "controls/form.h"
#include "controls/picture_controls.h"
#include "controls/texts.h"

namespace lumidex {

struct frmConvertFileNameWindow : Form {
  explicit frmConvertFileNameWindow(Platform& platform) : Form(platform, "frmConvertFileName", "Form1") {
    KeepDesign();
  }

  Label lblInfo{*this, "lblInfo", "Converting File:"};
  // The source, and what it becomes.
  Label lblFileName{*this, "lblFileName"};
  Label lblConvertFileName{*this, "lblConvertFileName"};
  ImageBox Image1{*this, "Image1", true};

  // While a batch runs.
  bool Converting = false;
};

}  // namespace lumidex
