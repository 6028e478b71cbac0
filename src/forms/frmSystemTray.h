#pragma once
// The form without a size that owns the icon in the notification area, and the two menus that pop up from it.

#include "controls/form.h"
#include "controls/menu_item.h"

namespace lumidex {

struct frmSystemTrayWindow : Form {
  explicit frmSystemTrayWindow(Platform& platform) : Form(platform, "frmSystemTray") {
    // They stand in no menu bar.
    mnuLPopup.Visible = false;
    mnuPopUpSys.Visible = false;
    KeepDesign();
  }

  MenuItem mnuLPopup{*this, "mnuLPopup", nullptr, "Pop Up Menu Left"};
  MenuItem mnuLoadList{*this, "mnuLoadList", &mnuLPopup, "&Load List"};
  MenuItem mnuSaveList{*this, "mnuSaveList", &mnuLPopup, "&Save List"};
  MenuItem mnuDiv2{*this, "mnuDiv2", &mnuLPopup, "-"};
  MenuItem mnuFullScreenSlideShow{*this, "mnuFullScreenSlideShow", &mnuLPopup, "&Run Full Screen Slide Show"};
  MenuItem mnuSlideShowInterval{*this, "mnuSlideShowInterval", &mnuLPopup, "Slide Show &Time Interval"};
  MenuItem mnuDiv3{*this, "mnuDiv3", &mnuLPopup, "-"};
  MenuItem mnuPreviousImage{*this, "mnuPreviousImage", &mnuLPopup, "&Previous Image"};
  MenuItem mnuNextImage{*this, "mnuNextImage", &mnuLPopup, "&Next Image"};

  MenuItem mnuPopUpSys{*this, "mnuPopUpSys", nullptr, "Pop Up Menu Right"};
  MenuItem mnuRestore{*this, "mnuRestore", &mnuPopUpSys, "&Restore"};
  MenuItem mnuMaximize{*this, "mnuMaximize", &mnuPopUpSys, "Ma&ximize"};
  MenuItem mnuMinimize{*this, "mnuMinimize", &mnuPopUpSys, "Mi&nimize"};
  MenuItem mnuExit{*this, "mnuExit", &mnuPopUpSys, "&Exit"};
  MenuItem mnudiv1{*this, "mnudiv1", &mnuPopUpSys, "-"};
  MenuItem mnuAbout{*this, "mnuAbout", &mnuPopUpSys, "&About"};

  // One record serves for adding and deleting the icon.
  TrayIconRecord IconRecord;
};

}  // namespace lumidex
