#pragma once
// The options: its controls are the live home of every choice the user makes.

#include "controls/buttons.h"
#include "controls/control_array.h"
#include "controls/form.h"
#include "controls/list_box.h"
#include "controls/picture_controls.h"
#include "controls/ranges.h"
#include "controls/tab_strip.h"
#include "controls/texts.h"
#include "forms/file_type_table.h"

namespace lumidex {

struct frmPreferencesWindow : Form {
  explicit frmPreferencesWindow(Platform& platform);

  TabStrip SSTab1{
      *this,
      "SSTab1",
      {"Select View &File Types", "Background Settings / Report Info", "JPEG Display / Save Settings",
       "Toolbar / Thumbnail Settings", "Associate File Types", "File Type Icon Reference"}};
  CommandButton cmdOK{*this, "cmdOK", "&OK"};

  // Tab 0.
  Label Label1{*this, "Label1", "Select File Types:"};
  ControlArray<CheckBox> chkFileType{*this, "chkFileType", 1, FileTypeCount, "", 1};
  CommandButton cmdSelectAllTypes{*this, "cmdSelectAllTypes", "Select All &Types"};
  CommandButton cmdClearAllTypes{*this, "cmdClearAllTypes", "C&lear All Types"};
  CommandButton cmdInvertSelections{*this, "cmdInvertSelections", "&Invert Selcetions"};
  CommandButton cmdWebFormats{*this, "cmdWebFormats", "&Web Formats"};
  CommandButton cmdMicrosoftFormats{*this, "cmdMicrosoftFormats", "&Microsoft Formats"};
  CommandButton cmdPortableFormats{*this, "cmdPortableFormats", "&PortableFormats"};

  // Tab 1.
  ControlArray<Label> lblScreenOptions{*this, "lblScreenOptions", 0, 1};
  ControlArray<Label> lblWPaper2Color{*this, "lblWPaper2Color", 0, 7};
  CheckBox chkStretch{*this, "chkStretch", "Stretc&h Viewer Image"};
  CheckBox chkMenuAltBackground{*this, "chkMenuAltBackground", "Display &Menu View Alternate Background"};
  CommandButton cmdMenuSelect{*this, "cmdMenuSelect", "&Select"};
  CheckBox chkCountFileTypes{*this, "chkCountFileTypes", "Count File Types", 1};
  CheckBox chkCountFileSize{*this, "chkCountFileSize", "Count File Size", 1};
  CheckBox chkCountFileColorDepth{*this, "chkCountFileColorDepth", "Count File Color Depth", 1};
  CommandButton cmdFileSummary{*this, "cmdFileSummary", "Gra&phic Image File Information Summary"};

  // Tab 2.
  Label lblJPGSaveSettings{*this, "lblJPGSaveSettings", "Save JPG Settings"};
  Label lblJPGQuality{*this, "lblJPGQuality", "JPG Save Quality"};
  TextBox txtJPGQuality{*this, "txtJPGQuality", "100"};
  UpDown udJPGQuality{*this, "udJPGQuality", 1, 100, 100};
  Label lblJPGSmoothing{*this, "lblJPGSmoothing", "JPG Smoothing"};
  TextBox txtJPGSmoothing{*this, "txtJPGSmoothing", "100"};
  UpDown udJPGSmoothing{*this, "udJPGSmoothing", 1, 100, 100};
  CheckBox chkJPGOptimize{*this, "chkJPGOptimize", "Optimize JPG File Save Size"};
  Frame fmJPGDitherMethodSaving{*this, "fmJPGDitherMethodSaving", "JPG Dither Method"};
  OptionGroup groupJPGDitherSaving;
  ControlArray<OptionButton> optJPGDitherSaving{*this, "optJPGDitherSaving", 0, 2, groupJPGDitherSaving};
  Frame fmDCTMethod{*this, "fmDCTMethod", "JPG DCT Method"};
  OptionGroup groupDCTMethod;
  ControlArray<OptionButton> optDCTMethod{*this, "optDCTMethod", 0, 2, groupDCTMethod};
  Frame fmDither{*this, "fmDither", "Dither Colors"};
  OptionGroup groupDither;
  ControlArray<OptionButton> optDither{*this, "optDither", 0, 2, groupDither};
  Frame fmJPGDither{*this, "fmJPGDither", "JPG Dither Method"};
  OptionGroup groupJPGDither;
  ControlArray<OptionButton> optJPGDither{*this, "optJPGDither", 0, 2, groupJPGDither};
  CheckBox chkFancyUpsizing{*this, "chkFancyUpsizing", "JPG Fancy Upsizing"};
  CheckBox chkTwoPassQuantize{*this, "chkTwoPassQuantize", "JPG Two Pass Quantize"};

  // Tab 3. Entry i of List1 stands for button i + 1 of the toolbar.
  ListBox List1{*this, "List1", ListStyle::CheckBoxes};
  CheckBox chkThumbNailStyle{*this, "chkThumbNailStyle", "Thumbnail Style"};
  Label lblThumbNailSize{*this, "lblThumbNailSize", "Thumbnail Size:"};
  Slider sldThumbNailSize{*this, "sldThumbNailSize", 50, 200, 100};
  Label lblThumbNailSizeValue{*this, "lblThumbNailSizeValue", "Size = 100"};
  // The sample thumbnail; its size is in pixels.
  ImageBox Image1{*this, "Image1"};

  // Tab 4, which leads nowhere.
  Label Label2{*this, "Label2", "Select File Types:"};
  Label Label3{*this, "Label3", "The Association Feature is still under development.....  COMING SOON......"};
  ControlArray<CheckBox> chkAssocFileType{*this, "chkAssocFileType", 1, FileTypeCount, "", 1};
  CommandButton cmdAssocSelectAll{*this, "cmdAssocSelectAll", "Select All &Types"};
  CommandButton cmdAssocClearAll{*this, "cmdAssocClearAll", "C&lear All Types"};
  CommandButton cmdAssocInvertAll{*this, "cmdAssocInvertAll", "&Invert Selcetions"};
  CommandButton cmdMakeAssoc{*this, "cmdMakeAssoc", "Set Associations"};

  // Tab 5.
  ControlArray<ImageBox> imgIconType{*this, "imgIconType", 0, FileTypeCount - 1};
  ControlArray<Label> lblIconType{*this, "lblIconType", 0, FileTypeCount - 1};

 private:
  // Which page of SSTab1 each control stands on.
  void DesignPages();
  void DesignFileTypes();
  void DesignScreenOptions();
  void DesignJpegOptions();
  void DesignToolbarList();
};

}  // namespace lumidex
