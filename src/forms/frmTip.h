#pragma once
// The tip of the day.

#include <random>

#include "controls/buttons.h"
#include "controls/field.h"
#include "controls/form.h"
#include "controls/picture_controls.h"
#include "controls/texts.h"

namespace lumidex {

struct frmTipWindow : Form {
  explicit frmTipWindow(Platform& platform) : Form(platform, "frmTip", "Korvane Lumidex - Tip of the Day") {
    for (Control* control : {static_cast<Control*>(&Label1), static_cast<Control*>(&lblTipText),
                             static_cast<Control*>(&Image1)}) {
      control->Container = &Picture1;
    }
    cmdOK.Default = true;
    cmdOK.Cancel = true;
    KeepDesign();
  }

  PictureBox Picture1{*this, "Picture1"};
  Label Label1{*this, "Label1", "Did you know..."};
  Label lblTipText{*this, "lblTipText"};
  CheckBox chkLoadTipsAtStartup{*this, "chkLoadTipsAtStartup", "&Show Tips at Startup"};
  CommandButton cmdNextTip{*this, "cmdNextTip", "&Next Tip"};
  CommandButton cmdOK{*this, "cmdOK", "OK"};
  ImageBox Image1{*this, "Image1", true};

  // One-based in use: tips in the order of the file, and the one that is shown.
  std::vector<std::string> Tips;
  Field<std::int32_t> CurrentTip{*this, "CurrentTip"};
  std::minstd_rand Random;
};

}  // namespace lumidex
