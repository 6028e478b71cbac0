#include "forms/frmPreferences.h"

#include <initializer_list>

namespace lumidex {
namespace {

void Put(TabStrip& tabs, int page, std::initializer_list<Control*> controls) {
  for (Control* control : controls) {
    control->Container = &tabs;
    control->ContainerPage = page;
  }
}

template <class T>
void Put(TabStrip& tabs, int page, ControlArray<T>& controls) {
  for (const auto& control : controls) Put(tabs, page, {control.get()});
}

void Design(ControlArray<OptionButton>& options, Frame& frame, std::initializer_list<const char*> captions) {
  for (const auto& option : options) option->Container = &frame;
  int index = 0;
  for (const char* caption : captions) options(index++).Caption = caption;
  options(0).Value = true;
}

}  // namespace

frmPreferencesWindow::frmPreferencesWindow(Platform& platform)
    : Form(platform, "frmPreferences", "Korvane Lumidex - Preferences") {
  cmdOK.Default = true;
  // Everything has taken effect already, so Escape is as good a way out as Enter.
  cmdOK.Cancel = true;
  DesignPages();
  DesignFileTypes();
  DesignScreenOptions();
  DesignJpegOptions();
  DesignToolbarList();
  sldThumbNailSize.TickFrequency = 10;
  // From tick to tick with the page keys and beside the thumb.
  sldThumbNailSize.LargeChange = 10;
  Image1.Width = static_cast<float>(sldThumbNailSize.Value);
  Image1.Height = static_cast<float>(sldThumbNailSize.Value);
  KeepDesign();
}

void frmPreferencesWindow::DesignPages() {
  Put(SSTab1, 0,
      {&Label1, &cmdSelectAllTypes, &cmdClearAllTypes, &cmdInvertSelections, &cmdWebFormats,
       &cmdMicrosoftFormats, &cmdPortableFormats});
  Put(SSTab1, 0, chkFileType);
  Put(SSTab1, 1,
      {&chkStretch, &chkMenuAltBackground, &cmdMenuSelect, &chkCountFileTypes, &chkCountFileSize,
       &chkCountFileColorDepth, &cmdFileSummary});
  Put(SSTab1, 1, lblScreenOptions);
  Put(SSTab1, 1, lblWPaper2Color);
  Put(SSTab1, 2,
      {&lblJPGSaveSettings, &lblJPGQuality, &txtJPGQuality, &udJPGQuality, &lblJPGSmoothing, &txtJPGSmoothing,
       &udJPGSmoothing, &chkJPGOptimize, &fmJPGDitherMethodSaving, &fmDCTMethod, &fmDither, &fmJPGDither,
       &chkFancyUpsizing, &chkTwoPassQuantize});
  Put(SSTab1, 3,
      {&List1, &chkThumbNailStyle, &lblThumbNailSize, &sldThumbNailSize, &lblThumbNailSizeValue, &Image1});
  Put(SSTab1, 4,
      {&Label2, &Label3, &cmdAssocSelectAll, &cmdAssocClearAll, &cmdAssocInvertAll, &cmdMakeAssoc});
  Put(SSTab1, 4, chkAssocFileType);
  Put(SSTab1, 5, imgIconType);
  Put(SSTab1, 5, lblIconType);
}

void frmPreferencesWindow::DesignFileTypes() {
  constexpr std::int32_t associationColour = 0xC0E0FF;  // red in the low byte
  for (int type = 1; type <= FileTypeCount; ++type) {
    const FileTypeRow& row = FileTypeTable[static_cast<std::size_t>(type - 1)];
    chkFileType(type).Caption = std::string(row.caption);
    chkAssocFileType(type).Caption = std::string(row.caption);
    chkAssocFileType(type).BackColor = associationColour;
    imgIconType(type - 1).PictureKey = "types/" + std::string(row.resource);
    lblIconType(type - 1).Caption = std::string(row.description);
  }
}

void frmPreferencesWindow::DesignScreenOptions() {
  lblScreenOptions(0).Caption = "Main Screen Options:";
  lblScreenOptions(1).Caption = "Image Summary Form Options:";
  // Red in the low byte; the first is the desktop's own control colour.
  int index = 0;
  for (const std::int32_t colour :
       {-1, 0xE0E0E0, 0x00FF00, 0x00FFFF, 0xFF0000, 0xFFFF00, 0x0000FF, 0xFF00FF}) {
    lblWPaper2Color(index++).BackColor = colour;
  }
  // The plain colour is what a first start shows.
  lblWPaper2Color(0).Border = BorderStyle::FixedSingle;
  cmdMenuSelect.Enabled = false;
}

void frmPreferencesWindow::DesignJpegOptions() {
  for (Control* control :
       std::initializer_list<Control*>{&txtJPGQuality, &udJPGQuality, &txtJPGSmoothing, &udJPGSmoothing}) {
    control->ToolTipText = "Value Range (1-100)";
  }
  Design(optJPGDitherSaving, fmJPGDitherMethodSaving, {"None", "Ordered", "Floyd-Steinberg"});
  Design(optDCTMethod, fmDCTMethod, {"Slow Integer", "Fast Integer", "Floating Point"});
  Design(optDither, fmDither, {"No Dithering", "Dither Always", "Dither Extra Colors"});
  Design(optJPGDither, fmJPGDither, {"None", "Ordered", "Floyd-Steinberg"});
}

void frmPreferencesWindow::DesignToolbarList() {
  for (const char* text :
       {"Directory", "Load List", "Save List", "Exit Lumidex", "Copy to Clipboard", "Wallpaper Centered",
        "Wallpaper Stretched", "Wallpaper Tiled", "Remove Wallpaper", "Previous Image", "Next Image",
        "Adjust Color Balances", "Adjust Contrast and Brightness", "Rotate Image 90 degrees",
        "Zoom Level Decrease", "Zoom Level Increase", "Display Lumidex Options",
        "Display Lumidex Full Screen Zoom Viewer", "Display Help/About!"}) {
    List1.AddItem(text);
    List1.SetSelected(List1.ListCount() - 1, true);
  }
}

}  // namespace lumidex
