#pragma once
// A chooser of the directory for a batch; nothing opens it.

#include "controls/buttons.h"
#include "controls/directory_reader.h"
#include "controls/file_lists.h"
#include "controls/form.h"
#include "controls/texts.h"

namespace lumidex {

struct frmSelectBatchDirWindow : Form {
  explicit frmSelectBatchDirWindow(Platform& platform)
      : Form(platform, "frmSelectBatchDir", "Korvane Lumidex - Select Batch Directory"),
        reader(platform.files) {
    cmdOK.Default = true;
    cmdCancel.Cancel = true;
    KeepDesign();
  }

  DirectoryReader reader;
  Label Label1{*this, "Label1", "Dri&ve"};
  DriveList Drive1{*this, "Drive1"};
  Label Label2{*this, "Label2", "&Directory"};
  DirList Dir1{*this, "Dir1", reader};
  // The result: the chosen directory, ending in a separator, or nothing.
  Label lblDirectoryName{*this, "lblDirectoryName"};
  CommandButton cmdOK{*this, "cmdOK", "&Ok"};
  CommandButton cmdCancel{*this, "cmdCancel", "&Cancel"};
};

}  // namespace lumidex
