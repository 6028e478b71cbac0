#pragma once
// The hidden form that owns the two scratch image controls.

#include "controls/control_array.h"
#include "controls/form.h"
#include "controls/gvbox.h"
#include "controls/picture_controls.h"
#include "controls/texts.h"
#include "forms/design_pictures.h"

namespace lumidex {

struct checkjpgWindow : Form {
  explicit checkjpgWindow(Platform& platform) : Form(platform, "checkjpg") {
    imgerror.Picture = PictureOf(DesignPicture::ErrorThumbnail);
    Image1.Picture = PictureOf(DesignPicture::Stock);
    imgEmpty.Picture = PictureOf(DesignPicture::EmptyThumbnail);
    KeepDesign();
  }

  // The working image: the current picture, and whatever was loaded into it last.
  Gvbox Picture1{*this, "Picture1"};
  // Used where Picture1 must keep what it holds.
  Gvbox Gvbox2{*this, "Gvbox2"};
  ImageBox imgerror{*this, "imgerror"};
  ImageBox Image1{*this, "Image1"};
  ImageBox imgEmpty{*this, "imgEmpty"};
  ControlArray<Label> Label1{*this, "Label1", 0, 2};
};

}  // namespace lumidex
