#pragma once
// A progress window for the making of thumbnails; nothing shows it.

#include "controls/form.h"

namespace lumidex {

struct frmMakeThumbNailsWindow : Form {
  explicit frmMakeThumbNailsWindow(Platform& platform) : Form(platform, "frmMakeThumbNails") { KeepDesign(); }
};

}  // namespace lumidex
