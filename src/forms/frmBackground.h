#pragma once
// The hidden form whose one image is the backdrop of the dialogs.

#include "controls/form.h"
#include "controls/picture_controls.h"
#include "forms/design_pictures.h"

namespace lumidex {

struct frmBackgroundWindow : Form {
  explicit frmBackgroundWindow(Platform& platform) : Form(platform, "frmBackground") {
    Image1.Picture = PictureOf(DesignPicture::Backdrop);
    KeepDesign();
  }

  ImageBox Image1{*this, "Image1"};
};

}  // namespace lumidex
