#pragma once
// The small window that shows while a search walks, with its Cancel button.

#include "controls/animation.h"
#include "controls/buttons.h"
#include "controls/form.h"
#include "controls/texts.h"

namespace lumidex {

struct frmlocatefilesWindow : Form {
  explicit frmlocatefilesWindow(Platform& platform) : Form(platform, "frmlocatefiles", "Lumidex") {
    CancelButton.Cancel = true;
    KeepDesign();
  }

  Animation Animation1{*this, "Animation1"};
  Label Label1{*this, "Label1",
               "Lumidex is scanning the selected Drive and Folder(s) for graphic image files."};
  CommandButton CancelButton{*this, "CancelButton", "Cancel"};
};

}  // namespace lumidex
