#pragma once
// The table of the last scan.

#include "controls/form.h"
#include "controls/grid.h"
#include "controls/menu_item.h"

namespace lumidex {

struct frmReportWindow : Form {
  explicit frmReportWindow(Platform& platform)
      : Form(platform, "frmReport", "Korvane Lumidex - Image File Information Report ") {
    KeepDesign();
  }

  MenuItem mnuClose{*this, "mnuClose", nullptr, "E&xit Report Screen"};
  MenuItem mnuGenerateHTMLReport{*this, "mnuGenerateHTMLReport", nullptr, "Generate &HTML Report"};
  MenuItem mnuGenerateTextFile{*this, "mnuGenerateTextFile", nullptr, "Generate &Text File"};
  // Row 0 holds the headings, column 0 is narrow and empty.
  Grid MSFlexGrid1{*this, "MSFlexGrid1", 1, 7};
};

}  // namespace lumidex
