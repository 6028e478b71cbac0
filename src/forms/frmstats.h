#pragma once
// The window that counts the Display list by type, size and depth.

#include "controls/buttons.h"
#include "controls/control_array.h"
#include "controls/form.h"
#include "controls/picture_controls.h"
#include "controls/ranges.h"
#include "controls/texts.h"
#include "forms/file_type_table.h"

namespace lumidex {

struct frmstatsWindow : Form {
  explicit frmstatsWindow(Platform& platform);

  // Fills the whole inside.
  ImageBox Image1{*this, "Image1", true};

  Label lblCurrentFile{*this, "lblCurrentFile", "Current File Being Checked:"};
  Label lblCurrentFileName{*this, "lblCurrentFileName"};
  Label lblCurrent{*this, "lblCurrent", "Current"};
  TextBox txtCurrentFile{*this, "txtCurrentFile", "0"};
  Label lblTotalFiles{*this, "lblTotalFiles", "Total"};
  TextBox txtTotalFiles{*this, "txtTotalFiles", "0"};
  ProgressBar ProgressBar1{*this, "ProgressBar1"};

  Frame fmFileTypes{*this, "fmFileTypes", "File Types"};
  ControlArray<Label> lblFileType{*this, "lblFileType", 1, FileTypeCount};
  ControlArray<TextBox> txtFileType{*this, "txtFileType", 1, FileTypeCount, "0"};
  Label lblFileTypeTotal{*this, "lblFileTypeTotal", "TOTAL"};
  TextBox txtFileTypeTotal{*this, "txtFileTypeTotal", "0"};

  Frame fmFileSizes{*this, "fmFileSizes", "File Sizes (in Thousands of Bytes)"};
  Label lblfilesize100{*this, "lblfilesize100", "<=100"};
  TextBox txtfilesize100{*this, "txtfilesize100", "0"};
  Label lblfilesize200{*this, "lblfilesize200", "<=200"};
  TextBox txtfilesize200{*this, "txtfilesize200", "0"};
  Label lblfilesize300{*this, "lblfilesize300", "<=300"};
  TextBox txtfilesize300{*this, "txtfilesize300", "0"};
  Label lblfilesize400{*this, "lblfilesize400", "<=400"};
  TextBox txtfilesize400{*this, "txtfilesize400", "0"};
  Label lblfilesize500{*this, "lblfilesize500", ">400"};
  TextBox txtfilesize500{*this, "txtfilesize500", "0"};
  Label lblFileSizeUnavailable{*this, "lblFileSizeUnavailable", "0 Length"};
  TextBox txtFileSizeUnavailable{*this, "txtFileSizeUnavailable", "0"};
  Label lblfilesizetotal{*this, "lblfilesizetotal", "Total"};
  TextBox txtfilesizetotal{*this, "txtfilesizetotal", "0"};
  Label lblTotalSize{*this, "lblTotalSize", "Total Size "};
  TextBox txtTotalSize{*this, "txtTotalSize"};

  Frame fmColors{*this, "fmColors", "Colors"};
  Label lblColors2{*this, "lblColors2", "2"};
  TextBox txtColors2{*this, "txtColors2", "0"};
  Label lblColors16{*this, "lblColors16", "16"};
  TextBox txtColors16{*this, "txtColors16", "0"};
  Label lblColors256{*this, "lblColors256", "256"};
  TextBox txtColors256{*this, "txtColors256", "0"};
  Label lblColors64K{*this, "lblColors64K", "64K"};
  TextBox txtColors64K{*this, "txtColors64K", "0"};
  Label lblColors167M{*this, "lblColors167M", "16.7M"};
  TextBox txtColors167M{*this, "txtColors167M", "0"};
  Label lblColorsUnknown{*this, "lblColorsUnknown", "Unknown"};
  TextBox txtColorsUnknown{*this, "txtColorsUnknown", "0"};
  Label lblColorsTotal{*this, "lblColorsTotal", "Total"};
  TextBox txtColorsTotal{*this, "txtColorsTotal", "0"};

  CommandButton cmdScan{*this, "cmdScan", "&Scan Files"};
  CommandButton cmdReport{*this, "cmdReport", "Show &Report"};
  CommandButton cmdClose{*this, "cmdClose", "&Close"};

  // Set when a scan begins, cleared by the button that closes the window.
  bool ScanRunning = false;
  // Counts the openings that have come to their end. What a scan of an earlier one still has to say goes
  // nowhere.
  int closings = 0;
  // Counts how often counters were written, by whatever scan.
  int showings = 0;
};

}  // namespace lumidex
