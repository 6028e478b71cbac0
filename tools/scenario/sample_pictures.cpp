#include "scenario/sample_pictures.h"

#include <algorithm>
#include <map>
#include <tuple>

#include "base/text.h"
#include "gallery/encoders/bmp_encoder.h"
#include "gallery/encoders/gif_encoder.h"
#include "gallery/encoders/icon_encoder.h"
#include "gallery/encoders/jpeg_encoder.h"
#include "gallery/encoders/png_encoder.h"
#include "gallery/encoders/pnm_encoder.h"
#include "gallery/encoders/tiff_encoder.h"
#include "pictures/pixels.h"
#include "scenario/words.h"

namespace lumidex::scenario {
namespace {

IndexedPicture Indexed(const Pixels& pixels, int bitsPerPixel) {
  if (bitsPerPixel == 1) return Reduce(pixels, BlackAndWhite(), Dithering::None);
  if (bitsPerPixel == 4) return Reduce(pixels, VgaColours(), Dithering::None);
  return Reduce(pixels, GreyColours(256), Dithering::None);
}

// The same pixels with a channel that says that none of them is transparent.
Pixels WithAlpha(const Pixels& pixels) {
  Pixels copy = Pixels::MakeUnfilled(pixels.GetSize(), PixelFormat::Argb);
  for (int y = 0; y < pixels.Height(); ++y) std::ranges::copy(pixels.Row(y), copy.Row(y).begin());
  return copy;
}

std::vector<std::uint8_t> Encoded(const std::string& kind, const Pixels& pixels, int bits) {
  const bool isIndexed = bits == 1 || bits == 4 || bits == 8;
  const bool isFull = bits == 0 || bits == 24;
  if (kind == ".bmp" || kind == ".dib") {
    if (isIndexed) return EncodeBmp(Indexed(pixels, bits));
    if (isFull) return EncodeBmp(pixels);
  }
  if (kind == ".rle" && (bits == 0 || bits == 8)) return EncodeRunLengthBmp(Indexed(pixels, 8));
  if (kind == ".png") {
    if (isIndexed) return EncodePng(Indexed(pixels, bits));
    if (isFull) return EncodePng(pixels);
    if (bits == 32) return EncodePng(WithAlpha(pixels));
  }
  if (kind == ".jpg" && isFull) return EncodeJpeg(pixels, 90);
  if (kind == ".jpe" && isFull) return EncodeJpeg(pixels, 90);
  if (kind == ".gif" && (bits == 0 || isIndexed)) return EncodeGif(Indexed(pixels, bits == 0 ? 8 : bits));
  if (kind == ".tif" && isFull) return EncodeTiff(pixels);
  if (kind == ".ppm" && isFull) return EncodePpm(pixels, PnmKind::Raw);
  if (kind == ".pgm" && (bits == 0 || bits == 8)) return EncodePgm(pixels, PnmKind::Raw);
  if (kind == ".pbm" && (bits == 0 || bits == 1)) return EncodePbm(Indexed(pixels, 1), PnmKind::Raw);
  if (kind == ".ico" && (bits == 0 || bits == 32)) return EncodeIcon({&pixels, 1});
  if (kind == ".cur" && (bits == 0 || bits == 32)) return EncodeCursor(pixels, 0, 0);
  throw Failure{"no sample picture can be made of the kind \"" + kind + "\" with " + std::to_string(bits) +
                " bits a pixel"};
}

}  // namespace

Pixels SamplePixels(Size size) {
  Pixels pixels = Pixels::Make(size, PixelFormat::Rgb, 0xFF000000);
  const auto step = [](int at, int length) {
    return length == 1 ? 0U : static_cast<std::uint32_t>(at * 255 / (length - 1));
  };
  for (int y = 0; y < size.height; ++y) {
    const auto row = pixels.Row(y);
    for (int x = 0; x < size.width; ++x) {
      row[static_cast<std::size_t>(x)] = 0xFF000040 | step(x, size.width) << 16 | step(y, size.height) << 8;
    }
  }
  return pixels;
}

std::string SampleFile(const std::string& extension, Size size, int bitsPerPixel) {
  if (size.width < 1 || size.height < 1) throw Failure{"a sample picture has at least one pixel"};
  // Every scenario of a file builds the same world once more.
  static std::map<std::tuple<std::string, int, int, int>, std::string> made;
  const std::string kind = LCase(extension);
  std::string& file = made[{kind, size.width, size.height, bitsPerPixel}];
  if (file.empty()) {
    const auto bytes = Encoded(kind, SamplePixels(size), bitsPerPixel);
    file.assign(bytes.begin(), bytes.end());
  }
  return file;
}

}  // namespace lumidex::scenario
