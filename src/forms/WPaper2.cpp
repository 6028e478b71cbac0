#include "forms/WPaper2.h"

#include <algorithm>
#include <array>

namespace lumidex {
namespace {

std::vector<StatusPanel> StatusPanels() {
  return {{"panel1", PanelStyle::Text, "Current Image:", "", "Current Image:"},
          {"panel2", PanelStyle::Text, "", "", ""},
          {"panel4", PanelStyle::Text, "", "", "30000 X 30000 X 24"},
          {"", PanelStyle::Text, "", "", "500%"},
          {"panel5", PanelStyle::Date, "", "", ""},
          {"panel6", PanelStyle::Time, "", "", ""},
          {"", PanelStyle::Text, "", "", " "}};
}

std::vector<ToolbarButton> ToolbarButtons() {
  return {{"Directory", "Select Image Directory", "dir1"},
          {"Load", "Load Image File List", "load1"},
          {"Save", "Save Image File List", "save1"},
          {"Exit", "Exit Graphics Viewer", "exit1"},
          {"Copy", "Copy Current Image To The Clipboard", "copy1"},
          {"wpaperc", "Set Current Image To Wallpaper Centered", "wpaperc"},
          {"wpapers", "Set Current Image To Wallpaper Stretched", "wpapers"},
          {"wpapert", "Set Current Image To Wallpaper Tiled", "wpapert"},
          {"wpaperr", "Remove Image From Desktop Wallpaper", "wpaperr"},
          {"Previous", "Move To Previous Picture", "prev1"},
          {"Next", "Move To Next Picture", "next1"},
          {"color", "Display Color Balance Options", "color1"},
          {"bright", "Display Contrast/Brightness Options", "bright1"},
          {"rotate", "Rotate Image Right 90 degrees", "rotate1"},
          {"zoomdec", "Decrease Zoom Level", "zoomdec1"},
          {"zoominc", "Increase Zoom Level", "zoominc1"},
          {"filetype", "Display Program Properties ", "filetype1"},
          {"zoom", "Display Current Image in Full Screen Viewer", "zoom1"},
          {"About", "Display Graphics Viewer About Information", "help1"}};
}

constexpr std::array zoomCaptions = {"25 %",  "50 %",  "75 %",  "100 %", "125 %", "150%",
                                     "175 %", "200 %", "300 %", "400 %", "500 %"};

}  // namespace

WPaper2Window::WPaper2Window(Platform& platform)
    : Form(platform, "WPaper2", "Korvane Lumidex"),
      StatusBar1(*this, "StatusBar1", StatusPanels()),
      Toolbar1(*this, "Toolbar1", ToolbarButtons()) {
  Width = 15300;
  Height = 11100;
  PlaceControls();
  SetMenuStates();
  KeepDesign();
}

float WPaper2Window::WidestFor(float height) const {
  // The lists end where the picture area does, and the move buttons stand below them.
  const float room = height - titleAboveEdge - cmdUp.Height - Picture1.Top;
  return std::max(leastWidth, Picture1.Left + room / pictureProportion + rightMargin);
}

void WPaper2Window::PlaceControls() {
  Image1.Container = &Picture1;
  Picture1.Scale = ScaleMode::Pixels;
  Picture1.Move(4200, 600, 5055, 3850);
  Image1.Move(0, 0, 5025 / twipsPerPixel, 3825 / twipsPerPixel);
  lblSelectionList.Move(90, 600, 975, 240);
  LstLeft.Move(90, 840, 3945, 840);
  cmdRightOne.Move(210, 2220, 1125, 300);
  cmdRightAll.Move(210, 2520, 1125, 300);
  cmdLeftOne.Move(1365, 2220, 1230, 300);
  cmdLeftAll.Move(1365, 2520, 1230, 300);
  lblCountLabel.Move(2700, 2130, 1335, 255);
  lblCount.Move(2700, 2385, 1335, 255);
  lblItemUseLabel.Move(2700, 2670, 1335, 255);
  CurrentPicture.Move(2700, 2930, 1335, 255);
  lblDisplayList.Move(90, 3000, 1095, 240);
  LstRight.Move(90, 3240, 3945, 1230);
  cmdUp.Move(720, 4485, 1290, 255);
  cmdDown.Move(2040, 4485, 1290, 255);
  txtPrgTitle.Move(90, 4800, 3945, 510);
  constexpr std::int32_t listColour = 0xFFC0C0;
  LstLeft.BackColor = listColour;
  LstRight.BackColor = listColour;
}

void WPaper2Window::SetMenuStates() {
  for (int level = 1; level <= 11; ++level) {
    mnuEditZoomLevel(level).Caption = zoomCaptions[static_cast<std::size_t>(level - 1)];
  }
  mnuEditZoomLevel(4).Checked = true;
  for (MenuItem* item : {&mnuFileClear,
                         &mnuFileSaveImageAs,
                         &mnuFileSaveThumbnail,
                         &mnuFileSave,
                         &mnuFileSaveAs,
                         &mnuPictureCopy,
                         &mnuEditRotateImage,
                         &mnuEditFlipImage,
                         &mnuEditImageContrast,
                         &mnuEditImageColorBalances,
                         &mnuEditZoom,
                         &mnuPictureViewer,
                         &mnuPictureThumbNailViewer,
                         &mnuPicturePrevious,
                         &mnuPictureNext,
                         &mnuPictureAddOne,
                         &mnuPictureAddAll,
                         &mnuPictureRemoveOne,
                         &mnuPictureRemoveAll,
                         &mnuPictureDesktopWallpaper,
                         &mnuFileProperties,
                         &mnuPictureImageSummary}) {
    item->Enabled = false;
  }
  for (MenuItem* item :
       {&mnuEditToolBar, &mnuEditStatusBar, &mnuSlideShowViewerOnly, &mnuSlideShowForwardOrder}) {
    item->Checked = true;
  }
  for (MenuItem* item :
       {&mnuFileBatchConvertImages, &mnuToolsOptions, &mnuOptionsToolbarSettings, &mnusg, &mPopUpSys}) {
    item->Visible = false;
  }
}

}  // namespace lumidex
