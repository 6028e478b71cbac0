#pragma once
// The zoom viewer: the current picture at one of sixteen zoom levels, on the whole screen.

#include "controls/bars.h"
#include "controls/buttons.h"
#include "controls/control_array.h"
#include "controls/field.h"
#include "controls/form.h"
#include "controls/gvbox.h"
#include "controls/menu_item.h"
#include "controls/picture_controls.h"

namespace lumidex {

struct frmZoomViewWindow : Form {
  explicit frmZoomViewWindow(Platform& platform);

  static constexpr int mostLevels = 16, plainLevel = 4;
  // Of an item of the zoom menu.
  static float FactorOf(int level);

  Toolbar tlbZoom;
  Gvbox Gvbox1{*this, "Gvbox1"};
  StatusBar StatusBar1;
  PictureBox Picture1{*this, "Picture1"};
  CommandButton cmdZoomDown{*this, "cmdZoomDown", "Zoom Down"};

  MenuItem mnuPicture{*this, "mnuPicture", nullptr, "&Picture"};
  MenuItem mnuPictureCloseViewer{*this, "mnuPictureCloseViewer", &mnuPicture, "&Close Viewer", 'X'};
  MenuItem mnuView{*this, "mnuView", nullptr, "&View"};
  MenuItem mnuZoomToolbar{*this, "mnuZoomToolbar", &mnuView, "&Zoom Toolbar", 'T'};
  MenuItem mnuViewFullScreen{*this, "mnuViewFullScreen", &mnuView, "&Full Screen", 'F'};
  MenuItem mnuZoom{*this, "mnuZoom", nullptr, "&Zoom"};
  ControlArray<MenuItem> mnuZoomLevel{*this, "mnuZoomLevel", 1, mostLevels, &mnuZoom, ""};

  Field<std::string> ImageFilePath{*this, "ImageFilePath"};
  Field<bool> FullScreenOn{*this, "FullScreenOn"};
  Field<std::string> SavedCaption{*this, "SavedCaption"};
  // The item that is ticked, also while the form is unloaded.
  Field<std::int16_t> TickedLevel{*this, "TickedLevel", plainLevel};

  // How often it has been loaded.
  unsigned Openings = 0;
};

}  // namespace lumidex
