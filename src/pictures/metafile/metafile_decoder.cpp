#include "pictures/metafile/metafile_decoder.h"

#include <cmath>

#include "base/out_of_memory.h"
#include "pictures/late_cairo.h"
#include "pictures/refusal.h"

namespace lumidex::metafile {
namespace {

constexpr double pixelsPerInch = 96;
// 64 MiB of pixels; the largest drawing that is made without being asked for.
constexpr double mostNaturalPixels = 1 << 24;
// Twice that when a size is asked for.
constexpr double mostWantedPixels = 1 << 25;

// Units of work for a file of up to one mebibyte; longer files may ask for more in proportion.
constexpr double workPerMebibyte = 1.0e9;
// Drawings are played in bands of no more than this, or than their natural size where that is larger.
constexpr double leastBandPixels = 1 << 20;

double AreaOf(Size size) {
  return static_cast<double>(size.width) * size.height;
}

}  // namespace

Size NaturalSize(Point inches, const PictureLimits& limits) {
  double width = std::abs(inches.x) * pixelsPerInch, height = std::abs(inches.y) * pixelsPerInch;
  if (!(width > 0) || !(height > 0)) Refuse("The metafile has no extent");
  if (!(std::round(width) <= limits.side) || !(std::round(height) <= limits.side))
    Refuse("The metafile is too large");
  const double most = std::min(mostNaturalPixels, static_cast<double>(limits.bytes) / 4);
  const double shrinking = std::sqrt(width * height / most);
  if (shrinking > 1) {
    width /= shrinking;
    height /= shrinking;
  }
  const auto whole = [](double side) { return std::max(1, static_cast<int>(std::lround(side))); };
  return {whole(width), whole(height)};
}

MetafileDecoder::MetafileDecoder(const PictureData& data, const OpenOptions& options, std::string_view format)
    : FileDecoder(data, options, format) {
  // Where it is missing this is the moment to say so: decoding always gives pixels.
  cairoLibrary.Need();
  facts_.bitsPerPixel = 24;
  facts_.scalable = true;
}

Pixels MetafileDecoder::Decode(const DecodeRequest& request) const {
  const Size wanted = request.wanted;
  const bool possible = wanted.width > 0 && wanted.height > 0 && wanted.width <= Limits().side &&
                        wanted.height <= Limits().side && AreaOf(wanted) <= mostWantedPixels;
  const Size size = possible ? wanted : facts_.size;
  return TellingOutOfMemory([&] {
    const std::vector<std::uint8_t> bytes = Data().All();
    // What may be spent on a drawing of the natural size may be spent on each part of a larger one, so that
    // none loses at a zoom what it has without.
    const double bandPixels = std::max(AreaOf(facts_.size), leastBandPixels);
    const int rows = std::clamp(static_cast<int>(bandPixels / size.width), 1, size.height);
    if (rows == size.height) return DrawRows(bytes, size, 0, rows, 1).pixels;
    Pixels pixels = Pixels::MakeUnfilled(size, PixelFormat::Rgb);
    for (int top = 0; top < size.height; top += rows) {
      const Rows band = DrawRows(bytes, size, top, std::min(rows, size.height - top), 1);
      // Colour that flows goes from one band into the next.
      if (band.lookedAround) return DrawRows(bytes, size, 0, size.height, AreaOf(size) / bandPixels).pixels;
      std::copy_n(band.pixels.Data(), band.pixels.ByteCount() / 4, pixels.Row(top).data());
    }
    return pixels;
  });
}

MetafileDecoder::Rows MetafileDecoder::DrawRows(Bytes bytes, Size size, int top, int count,
                                                double share) const {
  Rows rows{Pixels::Make({size.width, count}, PixelFormat::Rgb, 0xFFFFFFFF)};
  WorkBudget budget(share * workPerMebibyte * std::max(1.0, static_cast<double>(bytes.size()) / (1 << 20)));
  Canvas canvas(rows.pixels, budget);
  Play(bytes, canvas,
       {.unitToSheet = {.xx = static_cast<double>(size.width),
                        .yy = static_cast<double>(size.height),
                        .y0 = -static_cast<double>(top)}});
  canvas.Finish();
  rows.lookedAround = canvas.LookedAround();
  return rows;
}

}  // namespace lumidex::metafile
