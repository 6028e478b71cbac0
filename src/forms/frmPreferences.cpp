#include "forms/frmPreferences.h"

namespace lumidex {

frmPreferencesWindow::frmPreferencesWindow(Platform& platform)
    : Form(platform, "frmPreferences", "Korvane Lumidex - Preferences") {
  for (int type = 1; type <= FileTypeCount; ++type) {
    const std::string caption(FileTypeTable[static_cast<std::size_t>(type - 1)].caption);
    chkFileType(type).Caption = caption;
    chkAssocFileType(type).Caption = caption;
  }
  cmdOK.Default = true;
  KeepDesign();
}

}  // namespace lumidex
