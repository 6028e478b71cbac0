#pragma once
// The window with the vendor's three pages, each on a tab of its own.

#include "controls/combo_box.h"
#include "controls/control_array.h"
#include "controls/field.h"
#include "controls/form.h"
#include "controls/picture_controls.h"
#include "controls/tab_strip.h"
#include "controls/texts.h"
#include "controls/timer.h"
#include "controls/web_browser.h"

namespace lumidex {

struct frmBrowserWindow : Form {
  explicit frmBrowserWindow(Platform& platform) : Form(platform, "frmBrowser", "Korvane Lumidex 2001") {
    Width = 9600;
    Height = 7200;
    for (Control* inside : {static_cast<Control*>(&lblAddress), static_cast<Control*>(&cboAddress)}) {
      inside->Container = &picAddress;
    }
    lblAddress.Left = 50;
    lblAddress.Height = 195;
    for (int page = 0; page < 3; ++page) {
      brwWebBrowser(page).Container = &tabBrowser;
      brwWebBrowser(page).ContainerPage = page;
    }
    KeepDesign();
  }

  PictureBox picAddress{*this, "picAddress"};
  Label lblAddress{*this, "lblAddress", "Korvane Lumidex Online"};
  ComboBox cboAddress{*this, "cboAddress"};
  TabStrip tabBrowser{
      *this, "tabBrowser", {"Korvane Website", "Download Latest Version Of Lumidex", "Online Photo Library"}};
  ControlArray<WebBrowser> brwWebBrowser{*this, "brwWebBrowser", 0, 2};
  Timer timTimer{*this, "timTimer", 5, false};

  Field<std::string> StartingAddress1{*this, "StartingAddress1"}, StartingAddress2{*this, "StartingAddress2"},
      StartingAddress3{*this, "StartingAddress3"};
  Field<std::string> Title{*this, "Title"}, PreviousTitle{*this, "PreviousTitle"};
};

}  // namespace lumidex
