#pragma once
// The dialog that asks what a batch is converted to.

#include "controls/buttons.h"
#include "controls/control_array.h"
#include "controls/form.h"
#include "controls/picture_controls.h"
#include "controls/texts.h"

namespace lumidex {

struct frmConvertFileTypeWindow : Form {
  explicit frmConvertFileTypeWindow(Platform& platform)
      : Form(platform, "frmConvertFileType", "Convert File Type") {
    optFileType(0).Caption = "(.BMP) Microsoft WIndows Bitmap";
    optFileType(1).Caption = "(.JPG) - Joint Photographics Experts Group";
    cmdConvert.Default = true;
    cmdCancel.Cancel = true;
    KeepDesign();
  }

  Label lblInfo{*this, "lblInfo", "Please select a file type to convert images to:"};
  OptionGroup groupFileType;
  // Characters 2 to 5 of a caption are the extension of the target.
  ControlArray<OptionButton> optFileType{*this, "optFileType", 0, 1, groupFileType};
  CheckBox chkAddConvertFolder{*this, "chkAddConvertFolder", "Add Convert Folder"};
  CommandButton cmdConvert{*this, "cmdConvert", "&Convert"};
  CommandButton cmdCancel{*this, "cmdCancel", "C&ancel"};
  ImageBox Image1{*this, "Image1", true};
};

}  // namespace lumidex
