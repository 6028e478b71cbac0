#include "forms/frmPreferences.h"

#include <initializer_list>

namespace lumidex {
namespace {

void Design(ControlArray<OptionButton>& options, std::initializer_list<const char*> captions) {
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

void frmPreferencesWindow::DesignFileTypes() {
  constexpr std::int32_t associationColor = 0xC0E0FF;  // red in the low byte
  for (int type = 1; type <= FileTypeCount; ++type) {
    const FileTypeRow& row = FileTypeTable[static_cast<std::size_t>(type - 1)];
    chkFileType(type).Caption = std::string(row.caption);
    chkAssocFileType(type).Caption = std::string(row.caption);
    chkAssocFileType(type).BackColor = associationColor;
    imgIconType(type - 1).PictureKey = "types/" + std::string(row.resource);
    lblIconType(type - 1).Caption = std::string(row.description);
  }
}

void frmPreferencesWindow::DesignScreenOptions() {
  lblScreenOptions(0).Caption = "Main Screen Options:";
  lblScreenOptions(1).Caption = "Image Summary Form Options:";
  // Red in the low byte; the first is the desktop's own control colour.
  int index = 0;
  for (const std::int32_t color :
       {-1, 0xE0E0E0, 0x00FF00, 0x00FFFF, 0xFF0000, 0xFFFF00, 0x0000FF, 0xFF00FF}) {
    lblWPaper2Color(index++).BackColor = color;
  }
  cmdMenuSelect.Enabled = false;
}

void frmPreferencesWindow::DesignJpegOptions() {
  for (Control* control :
       std::initializer_list<Control*>{&txtJPGQuality, &udJPGQuality, &txtJPGSmoothing, &udJPGSmoothing}) {
    control->ToolTipText = "Value Range (1-100)";
  }
  Design(optJPGDitherSaving, {"None", "Ordered", "Floyd-Steinberg"});
  Design(optDCTMethod, {"Slow Integer", "Fast Integer", "Floating Point"});
  Design(optDither, {"No Dithering", "Dither Always", "Dither Extra Colors"});
  Design(optJPGDither, {"None", "Ordered", "Floyd-Steinberg"});
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
