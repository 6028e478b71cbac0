#pragma once
// The window that shows what the product is, at start and on demand.

#include "controls/buttons.h"
#include "controls/field.h"
#include "controls/form.h"
#include "controls/picture_controls.h"
#include "controls/texts.h"
#include "controls/timer.h"
#include "forms/design_pictures.h"
#include "forms/vendor.h"

namespace lumidex {

struct frmSplashWindow : Form {
  explicit frmSplashWindow(Platform& platform) : Form(platform, "frmSplash") {
    Border = BorderStyle::None;
    Image2.Picture = PictureOf(DesignPicture::ProgramLogo);
    Image3.Picture = PictureOf(DesignPicture::Title);
    Image4.Picture = PictureOf(DesignPicture::VendorLogo);
    Image5.Picture = PictureOf(DesignPicture::Spectrum);
    KeepDesign();
  }

  Timer Timer1{*this, "Timer1", 1000};
  CommandButton cmdClose{*this, "cmdClose", "&Close"};
  ImageBox Image1{*this, "Image1", true};
  ImageBox Image2{*this, "Image2", true};
  ImageBox Image3{*this, "Image3", true};
  ImageBox Image4{*this, "Image4", true};
  ImageBox Image5{*this, "Image5", true};
  Label Label2{*this, "Label2", "from"};
  Label lblPlatform{*this, "lblPlatform", "for Windows 98, Me, 2000 && NT4.0"};
  Label Label1{
      *this, "Label1",
      "This graphics viewer is a product of Korvane. It is being provided on an as is basis.  "
      "Korvane accepts NO responsibility for any adverse effects that you might experience while using this "
      "program on your system.  Korvane will continue the process of enhancing and updating this program. "
      "Should you encounter problems with our program, please contact us.  Remember that the continued "
      "development of this program is in your hands.  Send comments and ideas to " +
          VendorMail("support") + " and " + VendorMail("ideas")};

  // Seconds since midnight at load.
  Field<double> SplashStart{*this, "SplashStart"};
};

}  // namespace lumidex
