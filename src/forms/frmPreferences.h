#pragma once
// The options: its controls are the live home of every choice the user makes.

#include "controls/buttons.h"
#include "controls/form.h"
#include "controls/tab_strip.h"
#include "forms/file_type_table.h"

namespace lumidex {

struct frmPreferencesWindow : Form {
  explicit frmPreferencesWindow(Platform& platform);

  TabStrip SSTab1{
      *this,
      "SSTab1",
      {"Select View &File Types", "Background Settings / Report Info", "JPEG Display / Save Settings",
       "Toolbar / Thumbnail Settings", "Associate File Types", "File Type Icon Reference"}};
  ControlArray<CheckBox> chkFileType{*this, "chkFileType", 1, FileTypeCount, "", 1};
  ControlArray<CheckBox> chkAssocFileType{*this, "chkAssocFileType", 1, FileTypeCount};
  CheckBox chkStretch{*this, "chkStretch", "Stretc&h Viewer Image"};
  CommandButton cmdOK{*this, "cmdOK", "&OK"};
};

}  // namespace lumidex
