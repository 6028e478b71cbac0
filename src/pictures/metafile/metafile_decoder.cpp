#include "pictures/metafile/metafile_decoder.h"

#include <cmath>

#include "base/out_of_memory.h"

namespace lumidex::metafile {
namespace {

constexpr double pixelsPerInch = 96;
// 64 MiB of pixels; the largest drawing that is made without being asked for.
constexpr double mostNaturalPixels = 1 << 24;
// Twice that when a size is asked for.
constexpr double mostWantedPixels = 1 << 25;

// Units of work for a file of up to one mebibyte; longer files may ask for more in proportion.
constexpr double workPerMebibyte = 1.0e9;

}  // namespace

Size NaturalSize(Point inches, const PictureLimits& limits) {
  double width = std::abs(inches.x) * pixelsPerInch, height = std::abs(inches.y) * pixelsPerInch;
  if (!(width > 0) || !(height > 0))
    throw RunTimeError(ErrorNumber::InvalidPicture, "The metafile has no extent");
  if (!(std::round(width) <= limits.side) || !(std::round(height) <= limits.side))
    throw RunTimeError(ErrorNumber::InvalidPicture, "The metafile is too large");
  const double most = std::min(mostNaturalPixels, static_cast<double>(limits.bytes) / 4);
  const double shrinking = std::sqrt(width * height / most);
  if (shrinking > 1) {
    width /= shrinking;
    height /= shrinking;
  }
  const auto whole = [](double side) { return std::max(1, static_cast<int>(std::lround(side))); };
  return {whole(width), whole(height)};
}

MetafileDecoder::MetafileDecoder(const PictureData& data, const OpenOptions& options)
    : data_(data), limits_(options.limits) {
  facts_.bitsPerPixel = 24;
  facts_.scalable = true;
}

Pixels MetafileDecoder::Decode(const DecodeRequest& request) const {
  const Size wanted = request.wanted;
  const bool possible = wanted.width > 0 && wanted.height > 0 && wanted.width <= limits_.side &&
                        wanted.height <= limits_.side &&
                        static_cast<double>(wanted.width) * wanted.height <= mostWantedPixels;
  return TellingOutOfMemory([&] {
    Pixels pixels = Pixels::Make(possible ? wanted : facts_.size, PixelFormat::Rgb, 0xFFFFFFFF);
    const std::vector<std::uint8_t> bytes = data_.All();
    WorkBudget budget(workPerMebibyte * std::max(1.0, static_cast<double>(bytes.size()) / (1 << 20)));
    Canvas canvas(pixels, budget);
    const Box area = canvas.Area();
    Play(bytes, canvas, {.unitToSheet = {.xx = area.Width(), .yy = area.Height()}});
    canvas.Finish();
    return pixels;
  });
}

}  // namespace lumidex::metafile
