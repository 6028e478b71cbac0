#pragma once
// What the product is, and the way to the system's own facts.

#include "controls/buttons.h"
#include "controls/form.h"
#include "controls/hyper_link.h"
#include "controls/picture_controls.h"
#include "controls/texts.h"
#include "forms/design_pictures.h"
#include "forms/vendor.h"

namespace lumidex {

struct frmAboutWindow : Form {
  explicit frmAboutWindow(Platform& platform) : Form(platform, "frmAbout", "Korvane Lumidex - About") {
    Border = BorderStyle::FixedDialog;
    Image2.Picture = PictureOf(DesignPicture::ProgramLogo);
    Image3.Picture = PictureOf(DesignPicture::VendorLogo);
    cmdOK.Default = true;
    cmdOK.Cancel = true;
    KeepDesign();
  }

  ImageBox Image1{*this, "Image1", true};
  ImageBox Image2{*this, "Image2", true};
  ImageBox Image3{*this, "Image3", true};
  Label lblTitle{*this, "lblTitle", "Lumidex"};
  Label lblVersion{*this, "lblVersion", "Version 1.0"};
  Label lblDescription{
      *this, "lblDescription",
      "This graphics viewer is a product of Korvane. It is being provided on an as is basis.  "
      "Korvane accepts NO responsibility for any adverse effects that you might experience while using this "
      "program on your system.  Korvane will continue the process of enhancing and updating this program. "
      "Should you encounter problems with our program, please contact us at the E-Mail address shown below."};
  HyperLink HyperLinkLabel1{*this, "HyperLinkLabel1", VendorMail("support"),
                            "mailto:" + VendorMail("support")};
  HyperLink HyperLinkLabel2{*this, "HyperLinkLabel2", VendorPage("/"), VendorPage("/")};
  CommandButton cmdOK{*this, "cmdOK", "OK"};
  CommandButton cmdSysInfo{*this, "cmdSysInfo", "&System Info..."};
};

}  // namespace lumidex
