#include "pictures/reduced_picture.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

#include "pictures/codec.h"
#include "pictures/scaling.h"

namespace lumidex {
namespace {

// Half-transparent white or black over an opaque or transparent pixel.
std::uint32_t Shade(std::uint32_t pixel, std::uint32_t tone) {
  std::uint32_t shaded = 0xFF000000U;
  for (int shift = 0; shift < 24; shift += 8) {
    shaded |= (((pixel >> shift & 0xFFU) + tone) / 2) << shift;
  }
  return shaded;
}

void DrawBevel(Pixels& pixels) {
  constexpr std::uint32_t light = 255, dark = 40;
  const int lastX = pixels.Width() - 1, lastY = pixels.Height() - 1;
  for (int x = 0; x <= lastX; ++x) {
    const auto column = static_cast<std::size_t>(x);
    pixels.Row(0)[column] = Shade(pixels.Row(0)[column], light);
    pixels.Row(lastY)[column] = Shade(pixels.Row(lastY)[column], dark);
  }
  for (int y = 0; y <= lastY; ++y) {
    pixels.Row(y).front() = Shade(pixels.Row(y).front(), light);
    pixels.Row(y).back() = Shade(pixels.Row(y).back(), dark);
  }
}

// Makes the small copy when it is asked for.
class Reducing final : public Decoder {
 public:
  Reducing(Picture picture, int square, ReducedStyle style) : picture_(std::move(picture)), style_(style) {
    facts_.size = ReducedSize(picture_.GetSize(), square);
    facts_.bitsPerPixel = picture_.BitsPerPixel();
    facts_.format = picture_.Format();
    facts_.once = true;
  }

  Pixels Decode(const DecodeRequest& request) const override {
    Pixels pixels = picture_.PixelsToShow(facts_.size, request.stop);
    if (pixels.IsEmpty() || style_ == ReducedStyle::Flat) return pixels;
    pixels = Copy(pixels);
    DrawBevel(pixels);
    return pixels;
  }

 private:
  Picture picture_;
  ReducedStyle style_;
};

}  // namespace

Size ReducedSize(Size full, int square) {
  const int longest = std::max(full.width, full.height);
  if (longest <= square) return full;
  const double ratio = static_cast<double>(square) / longest;
  const auto side = [&](int length) { return std::max(1, static_cast<int>(std::lround(length * ratio))); };
  return {side(full.width), side(full.height)};
}

Picture ReducedPicture(const Picture& picture, int square, ReducedStyle style) {
  return Picture::FromDecoder(std::make_unique<Reducing>(picture, square, style));
}

}  // namespace lumidex
