#pragma once
// The thumbnail viewer: the Display list as pages of small pictures.

#include "controls/bars.h"
#include "controls/control_array.h"
#include "controls/field.h"
#include "controls/form.h"
#include "controls/menu_item.h"
#include "controls/picture_controls.h"
#include "controls/ranges.h"
#include "controls/texts.h"
#include "controls/timer.h"

namespace lumidex {

// Lengths in it are pixels.
struct frmThumbNailWindow : Form {
  explicit frmThumbNailWindow(Platform& platform);

  // 0 is the hidden pattern of the cells, and where each thumbnail arrives; the cells count from 1.
  ControlArray<ImageBox> imgThumbNail{*this, "imgThumbNail", 0, 0, true};
  ControlArray<Label> lblThumbNail{*this, "lblThumbNail", 0, 0};
  VScrollBar VScroll1{*this, "VScroll1"};
  StatusBar StatusBar1;
  Timer Timer4{*this, "Timer4"};
  MenuItem mnuCloseViewer{*this, "mnuCloseViewer", nullptr, "&Close Viewer"};
  // Nothing pops it up.
  MenuItem mnupopupmain{*this, "mnupopupmain", nullptr, "popupmenu"};
  ControlArray<MenuItem> mnupopup{*this, "mnupopup", 0, 3, &mnupopupmain, ""};
  MenuItem mnupopup7{*this, "mnupopup(7)", &mnupopupmain, "&About Korvane Graphics Viewer"};

  Field<std::int16_t> ThumbnailsPerPage{*this, "ThumbnailsPerPage"};
  // Position in the Display list, from 0, of the entry in the first cell.
  Field<std::int16_t> TopIndex{*this, "TopIndex"};
  // The first page has been built.
  Field<bool> ViewerReady{*this, "ViewerReady"};
  Field<bool> PageFilling{*this, "PageFilling"};
  Field<std::int16_t> PopupChoice{*this, "PopupChoice"};
  Field<std::int16_t> LastScreenSize{*this, "LastScreenSize"};

  // How often it has been loaded.
  unsigned Openings = 0;
};

}  // namespace lumidex
