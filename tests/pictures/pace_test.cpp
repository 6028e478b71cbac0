#include "pictures/pace.h"

#include <gtest/gtest.h>

#include <future>

#include "pictures/picture.h"
#include "pictures/row_target.h"

namespace lumidex {
namespace {

TEST(Pace, pauses_by_the_innermost_of_the_thread) {
  std::string paused;
  Pace::Pause();
  {
    const Pace outer([&] { paused += "outer "; });
    Pace::Pause();
    {
      const Pace inner([&] { paused += "inner "; });
      Pace::Pause();
      std::async(std::launch::async, [] { Pace::Pause(); }).get();
    }
    Pace::Pause();
  }
  Pace::Pause();
  EXPECT_EQ(paused, "outer inner outer ");
}

int PausesFor(Size size, const RowTarget::Options& options = {}) {
  int pauses = 0;
  const Pace pace([&] { ++pauses; });
  RowTarget target(size, PixelFormat::Rgb, options);
  while (target.RowsMissing() > 0) target.AddBlank(1, 0xFF000000U);
  return pauses;
}

TEST(Pace, is_kept_between_the_rows_of_large_pictures) {
  EXPECT_EQ(PausesFor({1600, 1000}), 90);
  EXPECT_EQ(PausesFor({1600, 1000}, {.wanted = {400, 250}}), 90);
}

TEST(Pace, is_nothing_to_small_pictures_and_no_more_than_one_pause_a_row) {
  EXPECT_EQ(PausesFor({100, 100}), 0);
  EXPECT_EQ(PausesFor({30000, 3}), 3);
}

// Lets the test see what goes on in the middle of a decode.
class SlowDecoder final : public Decoder {
 public:
  SlowDecoder(std::promise<void>& begun, std::future<void> goOn) : begun_(begun), goOn_(std::move(goOn)) {
    facts_.size = {4, 4};
  }
  Pixels Decode(const DecodeRequest&) const override {
    begun_.set_value();
    goOn_.wait();
    return Pixels::Make({4, 4}, PixelFormat::Rgb, 0);
  }

 private:
  std::promise<void>& begun_;
  std::future<void> goOn_;
};

TEST(Picture, is_awaited_while_somebody_waits_for_what_another_thread_decodes) {
  std::promise<void> begun, goOn;
  const Picture picture = Picture::FromDecoder(std::make_unique<SlowDecoder>(begun, goOn.get_future()));
  const auto decoding = std::async(std::launch::async, [&] { picture.FullPixels(); });
  begun.get_future().wait();
  EXPECT_FALSE(picture.IsAwaited());
  EXPECT_TRUE(picture.ReadyPixels().IsEmpty());
  EXPECT_FALSE(picture.IsAwaited());
  const auto waiting = std::async(std::launch::async, [&] { return picture.PixelsFor({2, 2}); });
  while (!picture.IsAwaited()) std::this_thread::yield();
  goOn.set_value();
  decoding.wait();
  waiting.wait();
  EXPECT_FALSE(picture.IsAwaited());
  EXPECT_FALSE(Picture().IsAwaited());
}

}  // namespace
}  // namespace lumidex
