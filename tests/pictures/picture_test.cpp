#include "pictures/picture.h"

#include <gmock/gmock.h>

#include <new>
#include <utility>

#include "gallery/encoders/emf_encoder.h"
#include "gallery/encoders/jpeg_encoder.h"
#include "gallery/encoders/wmf_encoder.h"
#include "number_raised.h"
#include "pictures/support/byte_writer.h"

namespace lumidex {
namespace {

Pixels Block() {
  return Pixels::Make({4, 4}, PixelFormat::Rgb, 0xFF123456);
}

TEST(Picture, Pixels_of_a_picture_that_nobody_else_holds_are_given_up_unshared) {
  EXPECT_FALSE(Picture::Release(Picture::FromPixels(Block(), 24)).IsShared());
}

TEST(Picture, Pixels_of_a_picture_that_somebody_holds_stay_with_it) {
  const Picture kept = Picture::FromPixels(Block(), 24);
  const Pixels released = Picture::Release(kept);
  EXPECT_TRUE(released.IsShared());
  EXPECT_EQ(kept.FullPixels().Data(), released.Data());
}

TEST(Picture, Released_pixels_of_a_file_are_whole_whatever_was_decoded_before) {
  Picture picture =
      Picture::Open(DataOf(EncodeJpeg(Pixels::Make({160, 80}, PixelFormat::Rgb, 0xFF336699), 90)));
  EXPECT_EQ(picture.PixelsFor({20, 10}).GetSize(), (Size{20, 10}));
  EXPECT_EQ(Picture::Release(std::move(picture)).GetSize(), (Size{160, 80}));
}

TEST(Picture, A_drawing_gives_its_own_file_also_after_a_decode_that_was_stopped) {
  WmfWriter writer;
  writer.Window(0, 0, 100, 100);
  for (const std::vector<std::uint8_t>& file : {writer.File(), EmfWriter(100, 100).File()}) {
    const Picture drawing = Picture::Open(DataOf(file));
    EXPECT_EQ(drawing.Type(), PictureType::Metafile);
    EXPECT_EQ(drawing.Drawing(), file);
    std::stop_source stop;
    stop.request_stop();
    drawing.PixelsFor({10, 10}, stop.get_token());
    EXPECT_EQ(drawing.Drawing(), file);
  }
}

TEST(Picture, What_is_no_drawing_has_no_file_of_one) {
  EXPECT_TRUE(Picture().Drawing().empty());
  EXPECT_TRUE(Picture::FromPixels(Block(), 24).Drawing().empty());
  EXPECT_TRUE(Picture::Open(DataOf(EncodeJpeg(Block(), 90))).Drawing().empty());
}

TEST(Picture, The_empty_picture_gives_up_nothing) {
  EXPECT_TRUE(Picture::Release({}).IsEmpty());
}

// Has memory for all but the first decode.
class HungryDecoder final : public Decoder {
 public:
  HungryDecoder() { facts_.size = {4, 4}; }
  Pixels Decode(const DecodeRequest&) const override {
    if (!std::exchange(fed_, true)) throw std::bad_alloc();
    return Block();
  }

 private:
  mutable bool fed_ = false;
};

TEST(Picture, A_lack_of_memory_while_decoding_is_the_programs_own_error_and_passes) {
  const Picture picture = Picture::FromDecoder(std::make_unique<HungryDecoder>());
  EXPECT_EQ(NumberRaisedBy([&] { picture.FullPixels(); }), 7);
  EXPECT_EQ(picture.FullPixels().Row(3)[3], 0xFF123456U);
}

}  // namespace
}  // namespace lumidex
