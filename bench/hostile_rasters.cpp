#include "hostile_rasters.h"

#include <algorithm>

#include "gallery/encoders/bmp_encoder.h"
#include "gallery/encoders/gem_encoder.h"
#include "gallery/encoders/gif_encoder.h"
#include "gallery/encoders/icon_encoder.h"
#include "gallery/encoders/iff_encoder.h"
#include "gallery/encoders/jpeg_encoder.h"
#include "gallery/encoders/msp_encoder.h"
#include "gallery/encoders/pcx_encoder.h"
#include "gallery/encoders/pic_encoder.h"
#include "gallery/encoders/png_encoder.h"
#include "gallery/encoders/pnm_encoder.h"
#include "gallery/encoders/ras_encoder.h"
#include "gallery/encoders/tga_encoder.h"
#include "gallery/encoders/tiff_encoder.h"
#include "gallery/encoders/wpg_encoder.h"
#include "pictures/pixels.h"

namespace lumidex {
namespace {

using File = std::vector<std::uint8_t>;

// The largest square that 384 MiB of pixels allow, and the largest of a JPEG file of several scans.
constexpr Size large{10000, 10000}, largeOfScans{6700, 6700};
constexpr std::size_t mostBytes = std::size_t{1} << 20;

Pixels OneColour(Size size) {
  return Pixels::Make(size, PixelFormat::Rgb, 0xFF3366CCU);
}

IndexedPicture OneIndex(int colours) {
  const std::size_t pixels = static_cast<std::size_t>(large.width) * static_cast<std::size_t>(large.height);
  return {large, GreyColours(colours), std::vector<std::uint8_t>(pixels, 1)};
}

// A copy, so that the memory of the whole file is not measured with it.
File Cut(const File& file) {
  return {file.begin(), file.begin() + static_cast<std::ptrdiff_t>(std::min(file.size(), mostBytes))};
}

}  // namespace

const std::vector<HostileFile>& HostileRasters() {
  static const std::vector<HostileFile> files = {
      {"PNG", ".png", [] { return Cut(EncodePng(OneColour(large))); }},
      {"PNG of indices", ".png", [] { return Cut(EncodePng(OneIndex(256))); }},
      {"JPEG", ".jpg", [] { return Cut(EncodeJpeg(OneColour(large), 30)); }},
      {"JPEG of several scans", ".jpg",
       [] { return Cut(EncodeJpeg(OneColour(largeOfScans), 30, JpegKind::Progressive)); }},
      {"GIF", ".gif", [] { return Cut(EncodeGif(OneIndex(256))); }},
      {"TIFF", ".tif", [] { return Cut(EncodeTiff(OneColour(large))); }},
      {"BMP", ".bmp", [] { return Cut(EncodeBmp(OneColour(large))); }},
      {"BMP of run lengths", ".bmp", [] { return Cut(EncodeRunLengthBmp(OneIndex(256))); }},
      {"ICO", ".ico", [] { return Cut(EncodeIcon(std::vector{OneColour(large)})); }},
      {"TGA", ".tga", [] { return Cut(EncodeTga(OneColour(large))); }},
      {"RAS", ".ras", [] { return Cut(EncodeRas(OneColour(large))); }},
      {"PCX", ".pcx", [] { return Cut(EncodePcx(OneColour(large))); }},
      {"PCX of planes", ".pcx", [] { return Cut(EncodePcx(OneIndex(16))); }},
      {"PIC", ".pic", [] { return Cut(EncodePic(OneIndex(16))); }},
      {"MSP", ".msp", [] { return Cut(EncodeMsp(OneIndex(2))); }},
      {"GEM", ".img", [] { return Cut(EncodeGem(OneIndex(16))); }},
      {"XIMG", ".img", [] { return Cut(EncodeXimg(OneIndex(256))); }},
      {"ILBM", ".iff", [] { return Cut(EncodeIlbm(OneColour(large))); }},
      {"ILBM of indices", ".iff", [] { return Cut(EncodeIlbm(OneIndex(256))); }},
      {"RGB8", ".iff", [] { return Cut(EncodeColourRuns(OneColour(large))); }},
      {"DEEP", ".iff", [] { return Cut(EncodeDeep(OneColour(large))); }},
      {"PBM chunks", ".lbm", [] { return Cut(EncodeLbm(OneIndex(256))); }},
      {"WPG", ".wpg", [] { return Cut(EncodeWpg(OneIndex(256))); }},
      {"PPM", ".ppm", [] { return Cut(EncodePpm(OneColour(large), PnmKind::Raw)); }},
      {"plain PBM", ".pbm", [] { return Cut(EncodePbm(OneIndex(2), PnmKind::Plain)); }},
  };
  return files;
}

}  // namespace lumidex
