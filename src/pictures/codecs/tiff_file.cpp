#include "pictures/codecs/tiff_file.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace lumidex {
namespace {

int ColourSamples(int photometric, int samples) {
  switch (photometric) {
    case PHOTOMETRIC_RGB:
    case PHOTOMETRIC_YCBCR:
    case PHOTOMETRIC_CIELAB:
    case PHOTOMETRIC_ICCLAB:
    case PHOTOMETRIC_ITULAB:
      return samples >= 3 ? 3 : 1;
    case PHOTOMETRIC_SEPARATED:
      return samples >= 4 ? 4 : 1;
    default:
      return 1;
  }
}

// What a file without the tag means: by its compression, by the tags that only one meaning has, or else by
// the number of its samples.
int GuessPhotometric(const TiffFile& file, const TiffLayout& layout) {
  TIFF* tiff = file.Handle();
  std::uint16_t *red = nullptr, *green = nullptr, *blue = nullptr, inks = 0;
  switch (layout.compression) {
    case COMPRESSION_CCITTRLE:
    case COMPRESSION_CCITTFAX3:
    case COMPRESSION_CCITTFAX4:
    case COMPRESSION_CCITTRLEW:
      return PHOTOMETRIC_MINISWHITE;
    case COMPRESSION_JPEG:
      if (layout.samples == 3) return PHOTOMETRIC_YCBCR;
      break;
    default:
      break;
  }
  if (layout.samples == 1 && TIFFGetField(tiff, TIFFTAG_COLORMAP, &red, &green, &blue) == 1)
    return PHOTOMETRIC_PALETTE;
  if (layout.samples >= 4 && TIFFGetField(tiff, TIFFTAG_INKSET, &inks) == 1) return PHOTOMETRIC_SEPARATED;
  return layout.samples >= 3 ? PHOTOMETRIC_RGB : PHOTOMETRIC_MINISBLACK;
}

}  // namespace

TiffFile::TiffFile(const ByteSource& source, std::int64_t mostBytes) : source_(source) {
  TIFFOpenOptions* options = TIFFOpenOptionsAlloc();
  if (options == nullptr) return;
  TIFFOpenOptionsSetMaxSingleMemAlloc(options, static_cast<tmsize_t>(mostBytes));
  TIFFOpenOptionsSetErrorHandlerExtR(options, Fail, this);
  TIFFOpenOptionsSetWarningHandlerExtR(
      options, [](TIFF*, void*, const char*, const char*, va_list) { return 1; }, nullptr);
  // m: no memory mapping. D: the table of strips is read when the first strip is.
  tiff_ = TIFFClientOpenExt(
      "picture", "rmD", this, Read, [](thandle_t, void*, tmsize_t) { return tmsize_t{0}; }, Seek,
      [](thandle_t) { return 0; },
      [](thandle_t self) { return static_cast<toff_t>(static_cast<TiffFile*>(self)->source_.Size()); },
      nullptr, nullptr, options);
  TIFFOpenOptionsFree(options);
}

TiffFile::~TiffFile() {
  if (tiff_ != nullptr) TIFFClose(tiff_);
}

int TiffFile::Fail(TIFF*, void* self, const char*, const char* format, va_list arguments) {
  std::array<char, 256> text{};
  std::vsnprintf(text.data(), text.size(), format, arguments);
  static_cast<TiffFile*>(self)->message_ = text.data();
  return 1;
}

tmsize_t TiffFile::Read(thandle_t handle, void* into, tmsize_t count) {
  auto& self = *static_cast<TiffFile*>(handle);
  const std::size_t done =
      self.source_.ReadAt(self.place_, {static_cast<std::uint8_t*>(into), static_cast<std::size_t>(count)});
  self.place_ += done;
  return static_cast<tmsize_t>(done);
}

toff_t TiffFile::Seek(thandle_t handle, toff_t offset, int whence) {
  auto& self = *static_cast<TiffFile*>(handle);
  if (whence == SEEK_CUR) offset += self.place_;
  if (whence == SEEK_END) offset += self.source_.Size();
  self.place_ = offset;
  return offset;
}

std::uint16_t TiffFile::FieldOrDefault(std::uint32_t tag) const {
  std::uint16_t value = 0;
  TIFFGetFieldDefaulted(tiff_, tag, &value);
  return value;
}

bool TiffFile::HasProfile() const {
  std::uint32_t bytes = 0;
  void* profile = nullptr;
  return TIFFGetField(tiff_, TIFFTAG_ICCPROFILE, &bytes, &profile) == 1;
}

TiffAlpha TiffAlphaOf(std::uint32_t kind) {
  if (kind == EXTRASAMPLE_ASSOCALPHA) return TiffAlpha::Premultiplied;
  return kind == EXTRASAMPLE_UNASSALPHA ? TiffAlpha::Straight : TiffAlpha::None;
}

TiffLayout ReadTiffLayout(const TiffFile& file) {
  TiffLayout layout;
  layout.width = file.Field<std::uint32_t>(TIFFTAG_IMAGEWIDTH, 0);
  layout.height = file.Field<std::uint32_t>(TIFFTAG_IMAGELENGTH, 0);
  layout.bits = file.FieldOrDefault(TIFFTAG_BITSPERSAMPLE);
  layout.samples = file.FieldOrDefault(TIFFTAG_SAMPLESPERPIXEL);
  layout.compression = file.FieldOrDefault(TIFFTAG_COMPRESSION);
  std::uint16_t photometric = 0;
  if (TIFFGetField(file.Handle(), TIFFTAG_PHOTOMETRIC, &photometric) == 1) {
    layout.photometric = photometric;
  } else {
    layout.photometric = GuessPhotometric(file, layout);
    TIFFSetField(file.Handle(), TIFFTAG_PHOTOMETRIC, layout.photometric);  // some decoders go by it
  }
  layout.sampleFormat = file.FieldOrDefault(TIFFTAG_SAMPLEFORMAT);
  layout.separate = file.FieldOrDefault(TIFFTAG_PLANARCONFIG) == PLANARCONFIG_SEPARATE && layout.samples > 1;
  layout.colourSamples = ColourSamples(layout.photometric, layout.samples);
  layout.orientation = OrientationOf(file.FieldOrDefault(TIFFTAG_ORIENTATION));
  if (layout.photometric == PHOTOMETRIC_YCBCR) {
    std::uint16_t across = 1, down = 1;
    TIFFGetFieldDefaulted(file.Handle(), TIFFTAG_YCBCRSUBSAMPLING, &across, &down);
    layout.chromaAcross = std::max<int>(across, 1);
    layout.chromaDown = std::max<int>(down, 1);
  }
  if (layout.samples > layout.colourSamples) {
    std::uint16_t count = 0;
    std::uint16_t* kinds = nullptr;
    TIFFGetFieldDefaulted(file.Handle(), TIFFTAG_EXTRASAMPLES, &count, &kinds);
    // libtiff makes up as many as it takes, of no kind, where the file says neither these nor its colours.
    const bool fromFile = count == layout.samples - layout.colourSamples;
    if (fromFile && kinds != nullptr) {
      layout.alpha = TiffAlphaOf(kinds[0]);
    } else if (layout.samples == 4 && layout.colourSamples == 3) {
      layout.alpha = TiffAlpha::Straight;  // writers forget to say what the fourth sample is
    }
  }
  return layout;
}

}  // namespace lumidex
