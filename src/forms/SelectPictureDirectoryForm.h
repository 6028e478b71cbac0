#pragma once
// The dialog in which the directory of a search is chosen. Its lists also do the walking of the search.

#include "controls/buttons.h"
#include "controls/control_array.h"
#include "controls/directory_reader.h"
#include "controls/file_lists.h"
#include "controls/form.h"
#include "controls/picture_controls.h"
#include "controls/texts.h"

namespace lumidex {

struct SelectPictureDirectoryFormWindow : Form {
  explicit SelectPictureDirectoryFormWindow(Platform& platform)
      : Form(platform, "SelectPictureDirectoryForm", "Korvane Lumidex - Select File Directory"),
        reader(platform.files) {
    cmdFolder(0).PictureKey = "desktop";
    cmdFolder(1).PictureKey = "documents";
    cmdFolder(2).PictureKey = "favourites";
    cmdOK.Default = true;
    cmdCancel.Cancel = true;
    KeepDesign();
  }

  DirectoryReader reader;
  Label lblInfo{*this, "lblInfo",
                "Please select picture directory - File list and thumbnail are for preview only!!!"};
  Label Label1{*this, "Label1", "Dri&ve"};
  DriveList Drive1{*this, "Drive1"};
  Label Label2{*this, "Label2", "&Directory"};
  DirList Dir1{*this, "Dir1", reader};
  Label lblFilename{*this, "lblFilename", "&Filename"};
  FileList File1{*this, "File1", reader};
  ControlArray<CommandButton> cmdFolder{*this, "cmdFolder", 0, 2};
  CheckBox chkSearchSubs{*this, "chkSearchSubs", "&Search Sub Folders"};
  CommandButton cmdSelectFileTypes{*this, "cmdSelectFileTypes", "Display 'Select File &Types Options'"};
  CommandButton cmdOK{*this, "cmdOK", "&Ok"};
  CommandButton cmdCancel{*this, "cmdCancel", "&Cancel"};
  ImageBox imgThumbNail{*this, "imgThumbNail"};
  Label lblFileSize{*this, "lblFileSize", "File Size:"};
  Label lblWidth{*this, "lblWidth", "Image Width:"};
  Label lblHeight{*this, "lblHeight", "Image Height:"};
  Label lblColors{*this, "lblColors", "Image Colors:"};
  ControlArray<Label> lblFileInfo{*this, "lblFileInfo", 1, 4};
  ImageBox Image1{*this, "Image1", true};

  // Previews so far, and directories gone to: a preview that sees them grow in its yields is out of date.
  std::uint64_t previewsBegun = 0;
};

}  // namespace lumidex
