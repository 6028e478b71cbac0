// Pictures that are to be shown, by workers that the test drives by hand.

#include "ports/decoding.h"
#include "pictures/codec.h"

#include <gmock/gmock.h>

#include <optional>
#include <thread>
#include <utility>

#include "base/run_time_error.h"
#include "gallery/encoders/png_encoder.h"
#include "platform/headless/headless_platform.h"

namespace lumidex {
namespace {

// Counts its decodes and lets something happen in the midst of each.
class WatchedDecoder final : public Decoder {
 public:
  struct Watch {
    int decodes = 0;
    std::function<void()> meanwhile;
    bool wasStopped = false;
    std::optional<ErrorNumber> error;
  };
  WatchedDecoder(Size size, Watch& watch) : watch_(watch) { facts_.size = size; }
  Pixels Decode(const DecodeRequest& request) const override {
    ++watch_.decodes;
    if (watch_.meanwhile) watch_.meanwhile();
    watch_.wasStopped = request.stop.stop_requested();
    if (watch_.error) throw RunTimeError(*watch_.error);
    return Pixels::Make(facts_.size, PixelFormat::Rgb, 0xFF00FF00);
  }

 private:
  Watch& watch_;
};

struct Decoding : testing::Test {
  HeadlessPlatform platform{'/'};
  DecodingService service{platform.files};
  WatchedDecoder::Watch watch;
  std::vector<std::string> told;

  Picture Watched(Size size = {40, 20}) {
    return Picture::FromDecoder(std::make_unique<WatchedDecoder>(size, watch));
  }
  DecodingService::Ready Tell(const std::string& name) {
    return [this, name](const Pixels& pixels) {
      told.push_back(name + " " + std::to_string(pixels.Width()) + "x" + std::to_string(pixels.Height()));
    };
  }
  std::unique_ptr<DecodingService::Showing> Show(const Picture& picture, Size size,
                                                 const std::string& name = "a",
                                                 DecodingPriority priority = DecodingPriority::Screen) {
    return service.Show(picture, size, priority, Tell(name));
  }
  void RunAll() {
    while (service.RunNext()) {
    }
  }
};

using testing::ElementsAre;

TEST_F(Decoding, A_picture_comes_at_the_size_it_is_to_be_shown_at) {
  const auto showing = Show(Watched(), {20, 10});
  EXPECT_EQ(showing->State(), DecodingState::HeaderKnown);
  EXPECT_TRUE(service.HasWork());
  EXPECT_TRUE(told.empty());
  RunAll();
  EXPECT_THAT(told, ElementsAre("a 20x10"));
  EXPECT_EQ(showing->State(), DecodingState::Decoded);
  EXPECT_FALSE(service.HasWork());
}

TEST_F(Decoding, It_is_never_enlarged) {
  const auto showing = Show(Watched(), {20, 1000});
  RunAll();
  EXPECT_THAT(told, ElementsAre("a 20x20"));
}

TEST_F(Decoding, What_is_there_already_comes_at_once) {
  const Picture picture = Watched();
  picture.PixelsToShow({20, 10});
  const auto showing = Show(picture, {20, 10});
  EXPECT_THAT(told, ElementsAre("a 20x10"));
  EXPECT_EQ(showing->State(), DecodingState::Decoded);
  EXPECT_FALSE(service.RunNext());
}

TEST_F(Decoding, Transparency_comes_premultiplied) {
  const auto bytes = EncodePng(Pixels::Make({2, 2}, PixelFormat::Argb, 0x80FF4020));
  platform.files.AddFile("/clear.png", {bytes.begin(), bytes.end()});
  Pixels shown;
  const auto showing = service.Show(OpenPicture(platform.files, "/clear.png"), {2, 2},
                                    DecodingPriority::Screen, [&](const Pixels& pixels) { shown = pixels; });
  RunAll();
  EXPECT_EQ(shown.Format(), PixelFormat::ArgbPremultiplied);
  EXPECT_THAT(shown.Row(0), testing::Each(0x80802010U));
}

// Where the pixels that are painted are others than the picture's own.
struct TransparentPicture : Decoding {
  std::size_t HeldAfterShowing(Size size) {
    const auto bytes = EncodePng(Pixels::Make(size, PixelFormat::Argb, 0x80FF4020));
    platform.files.AddFile("/clear.png", {bytes.begin(), bytes.end()});
    const Picture picture = OpenPicture(platform.files, "/clear.png");
    const auto showing = Show(picture, {2, 2});
    RunAll();
    EXPECT_THAT(told, ElementsAre("a 2x2"));
    return picture.HeldBytes();
  }
};

TEST_F(TransparentPicture, A_small_one_keeps_nothing_for_showing_it_again) {
  EXPECT_EQ(HeldAfterShowing({512, 512}), 0U);
}

TEST_F(TransparentPicture, A_larger_one_keeps_what_is_shown) {
  EXPECT_EQ(HeldAfterShowing({512, 513}), 2U * 2 * 4);
}

TEST_F(Decoding, The_screen_comes_before_a_page_and_each_in_its_order) {
  const auto cell1 = Show(Watched({1, 1}), {1, 1}, "cell1", DecodingPriority::Page);
  const auto cell2 = Show(Watched({1, 1}), {1, 1}, "cell2", DecodingPriority::Page);
  const auto large = Show(Watched({9, 9}), {9, 9}, "large");
  RunAll();
  EXPECT_THAT(told, ElementsAre("large 9x9", "cell1 1x1", "cell2 1x1"));
}

TEST_F(Decoding, What_nobody_waits_for_is_not_begun) {
  Show(Watched(), {20, 10}).reset();
  EXPECT_FALSE(service.RunNext());
  EXPECT_EQ(watch.decodes, 0);
}

TEST_F(Decoding, What_nobody_waits_for_any_longer_is_ended_and_not_told) {
  const Picture picture = Watched();
  auto showing = Show(picture, {20, 10});
  watch.meanwhile = [&] { showing.reset(); };
  RunAll();
  EXPECT_TRUE(watch.wasStopped);
  EXPECT_TRUE(told.empty());
  EXPECT_EQ(picture.HeldBytes(), 0U);
}

TEST_F(Decoding, A_picture_that_was_ended_can_be_asked_for_anew) {
  const Picture picture = Watched();
  auto showing = Show(picture, {20, 10});
  watch.meanwhile = [&, isFirst = true]() mutable {
    if (!std::exchange(isFirst, false)) return;
    std::thread([&] { showing = Show(picture, {10, 5}, "again"); }).join();
  };
  RunAll();
  EXPECT_THAT(told, ElementsAre("again 10x5"));
}

TEST_F(Decoding, A_picture_that_can_not_be_had_is_told_too) {
  watch.error = ErrorNumber::OutOfMemory;
  const auto showing = Show(Watched(), {20, 10});
  RunAll();
  EXPECT_THAT(told, ElementsAre("a 0x0"));
  EXPECT_EQ(showing->State(), DecodingState::Failed);
}

TEST_F(Decoding, Headless_it_comes_where_it_is_asked_for) {
  const auto showing = platform.decoding.Show(Watched(), {20, 10}, DecodingPriority::Screen, Tell("a"));
  EXPECT_THAT(told, ElementsAre("a 20x10"));
}

TEST_F(Decoding, A_reading_is_not_begun_by_who_only_shows) {
  DecodingService::Client client(service);
  platform.files.AddFile("/x.bmp", "");
  client.Want(DecodingPriority::Batch, {{"/x.bmp"}});
  EXPECT_FALSE(service.RunNextShowing());
  EXPECT_TRUE(service.RunNext());
}

}  // namespace
}  // namespace lumidex
