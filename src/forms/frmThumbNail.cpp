#include "forms/frmThumbNail.h"

namespace lumidex {
namespace {

constexpr float innerWidth = 632, innerHeight = 376;
constexpr float cellSide = 81, labelHeight = 16, scrollBarWidth = 16, statusBarHeight = 20;
constexpr float frameWidth = 8, frameAndMenuHeight = 47;

std::vector<StatusPanel> Panels() {
  std::vector<StatusPanel> panels(5);
  panels[0].Text = "Current Image:";
  panels[0].Widest = panels[0].Text;
  panels[2].Widest = "30000 X 30000 X 24";
  panels[3].Widest = "100,000,000";
  panels[4].Widest = "30,000 of 30,000";
  return panels;
}

}  // namespace

frmThumbNailWindow::frmThumbNailWindow(Platform& platform)
    : Form(platform, "frmThumbNail", "Korvane Lumidex - ThumbNail Viewer"),
      StatusBar1(*this, "StatusBar1", Panels()) {
  Scale = ScaleMode::Pixels;
  Width = (innerWidth + frameWidth) * twipsPerPixel;
  Height = (innerHeight + frameAndMenuHeight) * twipsPerPixel;
  imgThumbNail(0).Move(8, 1, cellSide, cellSide);
  imgThumbNail(0).Visible = false;
  lblThumbNail(0).Move(12, cellSide - 19, cellSide - 8, labelHeight);
  lblThumbNail(0).Visible = false;
  VScroll1.Move(innerWidth - scrollBarWidth, 0, scrollBarWidth, innerHeight - statusBarHeight);
  StatusBar1.Move(0, innerHeight - statusBarHeight, innerWidth, statusBarHeight);
  Timer4.Enabled = false;
  mnupopupmain.Visible = false;
  mnupopup(0).Caption = "&Make ThumbNail";
  mnupopup(1).Caption = "&Properties";
  mnupopup(2).Caption = "&Copy to Clipboard";
  mnupopup(3).Caption = "&Display Image";
  KeepDesign();
}

}  // namespace lumidex
