#include "forms/frmstats.h"

namespace lumidex {

frmstatsWindow::frmstatsWindow(Platform& platform)
    : Form(platform, "frmstats", "Korvane Lumidex - File Stats") {
  for (int type = 1; type <= FileTypeCount; ++type) {
    lblFileType(type).Caption = std::string(FileTypeTable[static_cast<std::size_t>(type - 1)].resource);
  }
  // The boxes show what was counted; nobody types into them.
  for (Control* control : Controls()) {
    if (auto* box = dynamic_cast<TextBox*>(control)) box->Locked = true;
  }
  cmdReport.Enabled = false;
  cmdClose.Cancel = true;
  KeepDesign();
}

}  // namespace lumidex
