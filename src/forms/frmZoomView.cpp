#include "forms/frmZoomView.h"

#include <array>

namespace lumidex {
namespace {

struct ZoomRow {
  const char* menuCaption;
  int functionKey;  // 0 for none
  const char* buttonCaption;
  const char* toolTip;
};

constexpr std::array<ZoomRow, frmZoomViewWindow::mostLevels> rows{{
    {"25 %", 0, ".25x", "Zoom Image to 25%"},
    {"50 %", 0, ".5x", "Zoom Image to 50%"},
    {"75 %", 0, ".75x", "Zoom Image to 75%"},
    {"100 %", 1, "1x", "Zoom Image to 100%"},
    {"125 %", 0, "1.25x", "Zoom Image to 125%"},
    {"150 %", 0, "1.5x", "Zoom Image to 150%"},
    {"175 %", 0, "1.75x", "Zoom Image to 175%"},
    {"200 %", 2, "2x", "Zoom Image to 200%"},
    {"300 %", 3, "3x", "Zoom Image to 300%"},
    {"400 %", 4, "4x", "Zoom Image to 400%"},
    {"500 %", 5, "5x", "Zoom Image to 500%"},
    {"600 %", 6, "6x", "Zoom Image to 600%"},
    {"700 %", 7, "7x", "Zoom Image to 700%"},
    {"800 %", 8, "8x", "Zoom Image to 800%"},
    {"900 %", 9, "9x", "Zoom Image to 900%"},
    {"1,000 %", 11, "10x", "Zoom Image to 1000%"},
}};

std::vector<ToolbarButton> Buttons() {
  ToolbarButton leave{"exit", "Exit Zoom Viewer", "exit1"};
  leave.Caption = "Exit";
  std::vector<ToolbarButton> buttons{leave};
  for (int level = 1; level <= frmZoomViewWindow::mostLevels; ++level) {
    const ZoomRow& row = rows[static_cast<std::size_t>(level - 1)];
    constexpr int plain = frmZoomViewWindow::plainLevel;
    ToolbarButton button{"zoom", row.toolTip,
                         level < plain ? "zoomdec1" : (level == plain ? "zoom1" : "zoominc1")};
    button.Caption = row.buttonCaption;
    buttons.push_back(button);
  }
  return buttons;
}

std::vector<StatusPanel> Panels() {
  std::vector<StatusPanel> panels(6);
  panels[0].Text = "Current Image:";
  panels[1].Widest = "Color: DDDDDD RGB=000,000,000";
  panels[2].Widest = "30000 X 30000 X 24";
  panels[3].Widest = "File Size: 1,000,000,000";
  panels[4].Widest = "Zoom= 1000";
  panels[5].Widest = "Location: 30000.25 X 30000.25";
  return panels;
}

}  // namespace

float frmZoomViewWindow::FactorOf(int level) {
  return level <= 8 ? 0.25F * static_cast<float>(level) : static_cast<float>(level - 6);
}

frmZoomViewWindow::frmZoomViewWindow(Platform& platform)
    : Form(platform, "frmZoomView", "Korvane Lumidex - Full Screen Zoom Viewer"),
      tlbZoom(*this, "tlbZoom", Buttons()),
      StatusBar1(*this, "StatusBar1", Panels()) {
  Width = 9600;
  Height = 7200;
  State = WindowState::Maximized;
  tlbZoom.Move(0, 0, 9480, 630);
  Gvbox1.Move(0, 630, 9480, 5865);
  StatusBar1.Move(0, 6495, 9480, 300);
  Picture1.Visible = false;
  cmdZoomDown.Visible = false;
  mnuZoomToolbar.Checked = true;
  for (int level = 1; level <= mostLevels; ++level) {
    const ZoomRow& row = rows[static_cast<std::size_t>(level - 1)];
    mnuZoomLevel(level).Caption = row.menuCaption;
    if (row.functionKey > 0) mnuZoomLevel(level).Shortcut = Shortcut::FunctionKey(row.functionKey);
  }
  mnuZoomLevel(plainLevel).Checked = true;
  KeepDesign();
}

}  // namespace lumidex
