#pragma once
// The facts of the selected entry and a small picture of it.

#include "controls/buttons.h"
#include "controls/control_array.h"
#include "controls/form.h"
#include "controls/picture_controls.h"
#include "controls/texts.h"

namespace lumidex {

struct frmFilePropertiesWindow : Form {
  explicit frmFilePropertiesWindow(Platform& platform)
      : Form(platform, "frmFileProperties", "Korvane Lumidex - File Properties") {
    cmdClose.Default = true;
    cmdClose.Cancel = true;
    KeepDesign();
  }

  Frame Frame1{*this, "Frame1", "File Properties"};
  Label lblFileName{*this, "lblFileName", "File Name:"};
  Label lblFileSize{*this, "lblFileSize", "File Size:"};
  Label lblWidth{*this, "lblWidth", "Image Width:"};
  Label lblHeight{*this, "lblHeight", "Image Height:"};
  Label lblColors{*this, "lblColors", "Image Colors:"};
  Label lblFileDate{*this, "lblFileDate", "File Date:"};
  Label lblFileTime{*this, "lblFileTime", "File Time:"};
  Label lblThumbNail{*this, "lblThumbNail", "File Thumbnail:"};
  // The path, then the values in the order of the labels above.
  ControlArray<Label> lblFileInfo{*this, "lblFileInfo", 0, 6};
  ImageBox imgThumbNail{*this, "imgThumbNail", true};
  CommandButton cmdClose{*this, "cmdClose", "&Close"};
  ImageBox Image1{*this, "Image1", true};

  // How often it has been loaded.
  unsigned Openings = 0;
};

}  // namespace lumidex
