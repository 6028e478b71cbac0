#pragma once
// The window in which a slide show fills the screen: the picture on black, and a button that ends the show.

#include "controls/buttons.h"
#include "controls/form.h"
#include "controls/picture_controls.h"
#include "controls/texts.h"

namespace lumidex {

struct frmSlideShowFullScreenWindow : Form {
  explicit frmSlideShowFullScreenWindow(Platform& platform) : Form(platform, "frmSlideShowFullScreen") {
    constexpr std::int32_t black = 0, lightGrey = 0xE0E0E0;
    State = WindowState::Maximized;
    Border = BorderStyle::None;
    Scale = ScaleMode::Pixels;
    picImage.Scale = ScaleMode::Pixels;
    picImage.Border = BorderStyle::None;
    picImage.BackColor = black;
    for (Control* control : {static_cast<Control*>(&imgImage), static_cast<Control*>(&cmdClose),
                             static_cast<Control*>(&lblFileName)}) {
      control->Container = &picImage;
    }
    cmdClose.Move(0, 0, 65, 25);
    lblFileName.ForeColor = lightGrey;
    lblFileName.BackColor = black;
    lblFileName.Visible = false;
    KeepDesign();
  }

  PictureBox picImage{*this, "picImage"};
  ImageBox imgImage{*this, "imgImage", true};
  CommandButton cmdClose{*this, "cmdClose", "&Close"};
  Label lblFileName{*this, "lblFileName"};
};

}  // namespace lumidex
