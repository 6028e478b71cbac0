#include "forms/design_pictures.h"

#include "pictures/picture_data.h"

namespace lumidex {
namespace embedded {

extern const std::span<const std::uint8_t> backdropBytes, emptyBytes, errorBytes, programBytes, spectrumBytes,
    stockBytes, titleBytes, vendorBytes;

}  // namespace embedded

namespace {

Bytes BytesOf(DesignPicture picture) {
  switch (picture) {
    case DesignPicture::Backdrop:
      return embedded::backdropBytes;
    case DesignPicture::EmptyThumbnail:
      return embedded::emptyBytes;
    case DesignPicture::ErrorThumbnail:
      return embedded::errorBytes;
    case DesignPicture::Stock:
      return embedded::stockBytes;
    case DesignPicture::ProgramLogo:
      return embedded::programBytes;
    case DesignPicture::Title:
      return embedded::titleBytes;
    case DesignPicture::VendorLogo:
      return embedded::vendorBytes;
    case DesignPicture::Spectrum:
      return embedded::spectrumBytes;
  }
  return {};
}

}  // namespace

Picture PictureOf(DesignPicture picture) {
  return Picture::Open(PictureData(std::make_shared<LastingSource>(BytesOf(picture)), ".png"));
}

}  // namespace lumidex
