#include "pictures/filtered_picture.h"

#include <utility>

#include "pictures/codec.h"
#include "pictures/scaling.h"

namespace lumidex {
namespace {

class FilteringDecoder final : public Decoder {
 public:
  FilteringDecoder(const Picture& source, std::vector<PixelFilter> filters)
      : source_(source), filters_(std::move(filters)) {
    facts_.size = source.GetSize();
    facts_.bitsPerPixel = source.BitsPerPixel();
    facts_.reducible = true;
  }

  Pixels Decode(const DecodeRequest& request) const override {
    Pixels pixels = SourcePixels(request);
    if (pixels.IsEmpty()) return pixels;
    // Each filter sees pixels that are shared with the source and leaves its own, or its own already.
    for (const PixelFilter& filter : filters_) filter(pixels);
    return pixels;
  }

 private:
  Pixels SourcePixels(const DecodeRequest& request) const {
    const Size wanted = request.wanted;
    // A drawing gives exactly what is asked for, but as a bitmap it has one size.
    if (source_.IsScalable() || wanted.width <= 0 || wanted.height <= 0) return source_.FullPixels();
    // What is shown beside its filtered copy, or was shown larger, need not be decoded once more.
    if (request.fit == Fit::Exact) return source_.PixelsToShow(wanted, request.stop);
    const Pixels pixels = source_.PixelsFor(wanted);
    // What somebody else needed may be far larger; filtering all of that costs more than scaling it.
    if (pixels.Width() <= 2 * wanted.width || pixels.Height() <= 2 * wanted.height) return pixels;
    return Scale(pixels, wanted);
  }

  Picture source_;
  std::vector<PixelFilter> filters_;
};

}  // namespace

Picture Filtered(const Picture& source, std::vector<PixelFilter> filters) {
  return Picture::FromDecoder(std::make_unique<FilteringDecoder>(source, std::move(filters)));
}

}  // namespace lumidex
