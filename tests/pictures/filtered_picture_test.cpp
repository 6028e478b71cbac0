#include "pictures/filtered_picture.h"

#include <gtest/gtest.h>

#include "gallery/encoders/jpeg_encoder.h"
#include "pictures/filters.h"
#include "pictures/support/byte_writer.h"
#include "pictures/support/patterns.h"

namespace lumidex {
namespace {

PixelFilter Brighter(int amount) {
  return [amount](Pixels& pixels) { Brighten(pixels, amount); };
}

Pixels Slope(Size size) {
  Pixels pixels = Pixels::Make(size, PixelFormat::Rgb, 0);
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      pixels.Row(y)[static_cast<std::size_t>(x)] = 0xFF000000U |
                                                   static_cast<std::uint32_t>(x * 255 / size.width) << 16 |
                                                   static_cast<std::uint32_t>(y * 255 / size.height) << 8;
    }
  }
  return pixels;
}

class CountingDecoder final : public Decoder {
 public:
  explicit CountingDecoder(int& decodes) : decodes_(decodes) {
    facts_.size = {200, 150};
    facts_.reducible = true;
  }
  Pixels Decode(const DecodeRequest&) const override {
    ++decodes_;
    return Slope(facts_.size);
  }

 private:
  int& decodes_;
};

TEST(FilteredPicture, At_full_size_it_is_the_source_with_the_filters_in_their_order) {
  const Picture source = Picture::FromPixels(Slope({40, 30}), 8);
  const Picture filtered =
      Filtered(source, {Brighter(30), [](Pixels& pixels) { ChangeContrast(pixels, 50); }});
  Pixels wanted = Slope({40, 30});
  Brighten(wanted, 30);
  ChangeContrast(wanted, 50);
  EXPECT_EQ(WordsOf(filtered.FullPixels()), WordsOf(wanted));
  EXPECT_EQ(WordsOf(source.FullPixels()), WordsOf(Slope({40, 30})));
  EXPECT_EQ(filtered.GetSize(), (Size{40, 30}));
  EXPECT_EQ(filtered.BitsPerPixel(), 8);
  EXPECT_EQ(filtered.Type(), PictureType::Bitmap);
}

TEST(FilteredPicture, No_more_pixels_are_filtered_than_are_asked_for) {
  const Picture source = Picture::Open(DataOf(EncodeJpeg(Slope({800, 600}), 90), ".jpg"));
  std::vector<Size> filteredSizes;
  const Picture filtered =
      Filtered(source, {[&](Pixels& pixels) { filteredSizes.push_back(pixels.GetSize()); }});
  EXPECT_EQ(filtered.PixelsFor({100, 75}).GetSize(), (Size{100, 75}));
  static_cast<void>(source.FullPixels());  // somebody else needs all
  const Picture other =
      Filtered(source, {[&](Pixels& pixels) { filteredSizes.push_back(pixels.GetSize()); }});
  EXPECT_EQ(other.PixelsFor({100, 75}).GetSize(), (Size{100, 75}));
  EXPECT_EQ(other.PixelsFor({500, 375}).GetSize(), (Size{800, 600}));
  EXPECT_EQ(filteredSizes, (std::vector<Size>{{100, 75}, {100, 75}, {800, 600}}));
}

TEST(FilteredPicture, What_was_shown_is_not_decoded_again_for_its_preview) {
  int decodes = 0;
  const Picture source = Picture::FromDecoder(std::make_unique<CountingDecoder>(decodes));
  static_cast<void>(source.PixelsToShow({100, 75}));
  for (const int amount : {10, 20}) {
    const Pixels preview = Filtered(source, {Brighter(amount)}).PixelsToShow({40, 30});
    Pixels wanted = source.PixelsToShow({40, 30});
    Brighten(wanted, amount);
    EXPECT_EQ(WordsOf(preview), WordsOf(wanted));
  }
  EXPECT_EQ(decodes, 1);
}

TEST(FilteredPicture, A_preview_no_smaller_than_the_picture_is_exact) {
  const Picture source = Picture::FromPixels(Slope({40, 30}), 24);
  Pixels wanted = Slope({40, 30});
  Brighten(wanted, -20);
  EXPECT_EQ(WordsOf(Filtered(source, {Brighter(-20)}).PixelsFor({300, 200})), WordsOf(wanted));
}

TEST(FilteredPicture, Without_filters_the_pixels_are_those_of_the_source) {
  const Picture source = Picture::FromPixels(Slope({40, 30}), 24);
  EXPECT_EQ(Filtered(source, {}).FullPixels().Data(), source.FullPixels().Data());
}

}  // namespace
}  // namespace lumidex
