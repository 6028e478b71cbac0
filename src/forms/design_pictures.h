#pragma once
// The drawn pictures that belong to the design of forms: the dialogs' backdrop, the logos, and the stock
// pictures of the hidden form, such as the placeholder of the thumbnail pages.

#include "pictures/picture.h"

namespace lumidex {

enum class DesignPicture {
  Backdrop,
  EmptyThumbnail,
  ErrorThumbnail,
  Stock,
  ProgramLogo,
  Title,
  VendorLogo,
  Spectrum
};

// Its pixels are decoded when they are first needed.
Picture PictureOf(DesignPicture picture);

}  // namespace lumidex
