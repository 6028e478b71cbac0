// Neighbours: files that are read ahead of the one that is shown.

#include <functional>
#include <new>
#include <thread>

#include "gallery/encoders/cut_encoder.h"
#include "gallery/encoders/emf_encoder.h"
#include "gallery/encoders/jpeg_encoder.h"
#include "pictures/pixels.h"
#include "ports/reading_ahead.h"

namespace lumidex {
namespace {

TEST_F(DecodingAhead, Nothing_is_read_before_its_turn) {
  Want({"/a.bmp"});
  EXPECT_TRUE(ahead.HasWorkForIdleness());
  EXPECT_TRUE(Find("/a.bmp").IsEmpty());
}

TEST_F(DecodingAhead, The_first_wish_is_read_first) {
  Want({"/b.bmp", "/a.bmp"});
  EXPECT_TRUE(ahead.RunNext());
  EXPECT_FALSE(Find("/b.bmp").IsEmpty());
  EXPECT_TRUE(Find("/a.bmp").IsEmpty());
}

TEST_F(DecodingAhead, What_was_read_has_its_pixels_and_is_found_more_than_once) {
  Want({"/a.bmp", "/b.bmp"});
  EXPECT_EQ(RunAll(), 2);
  EXPECT_FALSE(ahead.HasWorkForIdleness());
  EXPECT_FALSE(Find("/a.bmp").ReadyToShow({100, 100}).IsEmpty());
  EXPECT_EQ(Find("/a.bmp"), Find("/a.bmp"));
  EXPECT_FALSE(Find("/b.bmp").IsEmpty());
}

TEST_F(DecodingAhead, A_newer_wish_replaces_the_older_ones) {
  Want({"/a.bmp", "/b.bmp"});
  Want({"/c.bmp"});
  EXPECT_EQ(RunAll(), 1);
  EXPECT_TRUE(Find("/a.bmp").IsEmpty());
}

TEST_F(DecodingAhead, What_is_wanted_still_is_not_read_again) {
  Want({"/a.bmp"});
  RunAll();
  const Picture first = Find("/a.bmp");
  Want({"/b.bmp", "/a.bmp"});
  EXPECT_EQ(RunAll(), 1);
  EXPECT_EQ(Find("/a.bmp"), first);
}

TEST_F(DecodingAhead, What_is_wanted_no_longer_is_let_go) {
  Want({"/a.bmp"});
  RunAll();
  Want({"/b.bmp"});
  EXPECT_TRUE(Find("/a.bmp").IsEmpty());
}

TEST_F(DecodingAhead, The_current_picture_is_kept_and_stays_as_a_neighbour) {
  const OpenedPicture current = Opened("/a.bmp");
  Want({"/b.bmp"}, current, Whole);
  EXPECT_EQ(Find("/a.bmp"), current.picture);
  Want({"/c.bmp", "/a.bmp"}, Opened("/b.bmp"), Whole);
  EXPECT_EQ(Find("/a.bmp"), current.picture);
  Want({"/d.bmp", "/b.bmp"}, Opened("/c.bmp"), Whole);
  EXPECT_TRUE(Find("/a.bmp").IsEmpty());
}

TEST_F(DecodingAhead, Neighbours_wait_until_the_program_idles) {
  Want({"/a.bmp"});
  EXPECT_FALSE(ahead.RunNext(false));
  EXPECT_TRUE(ahead.RunNext(true));
}

TEST_F(DecodingAhead, What_is_to_be_shown_comes_before_neighbours) {
  Want({"/a.bmp"});
  std::string order;
  const auto showing = ahead.Show(OpenPicture(platform.files, "/b.bmp"), {50, 50}, DecodingPriority::Screen,
                                  [&](const Pixels&) { order += "shown"; });
  EXPECT_FALSE(ahead.HasWorkForIdleness());
  EXPECT_TRUE(ahead.RunNext());
  EXPECT_EQ(order, "shown");
  EXPECT_TRUE(Find("/a.bmp").IsEmpty());
}

TEST_F(DecodingAhead, A_file_that_has_changed_is_not_found) {
  Want({"/a.bmp"});
  RunAll();
  const std::uint64_t before = Stamp("/a.bmp");
  AddPicture("/a.bmp", {50, 50});
  EXPECT_TRUE(Find("/a.bmp").IsEmpty());
  EXPECT_EQ(ahead.Find("/a.bmp", before, {}).GetSize(), (Size{100, 100}));
}

TEST_F(DecodingAhead, A_file_that_can_not_be_told_apart_is_not_found) {
  Want({"/a.bmp"});
  RunAll();
  EXPECT_TRUE(ahead.Find("/a.bmp", 0, {}).IsEmpty());
}

TEST_F(DecodingAhead, A_picture_decoded_with_other_options_is_not_found) {
  Want({"/a.bmp"});
  RunAll();
  DecoderOptions other;
  other.reduceColours = true;
  EXPECT_TRUE(ahead.Find("/a.bmp", Stamp("/a.bmp"), other).IsEmpty());
}

TEST_F(DecodingAhead, What_can_not_be_read_is_passed_over) {
  platform.files.AddFile("/bad.bmp", "no picture");
  platform.files.AddDirectory("/folder.bmp");
  platform.files.AddOther("/pipe.bmp");
  Want({"/bad.bmp", "/gone.bmp", "/folder.bmp", "/pipe.bmp", "/a.bmp"});
  EXPECT_EQ(RunAll(), 5);
  EXPECT_TRUE(ahead.Find("/bad.bmp", Stamp("/bad.bmp"), {}).IsEmpty());
  EXPECT_FALSE(Find("/a.bmp").IsEmpty());
}

TEST_F(DecodingAhead, What_does_not_fit_into_the_budget_is_not_decoded) {
  AddPicture("/large.bmp", {200, 200});
  Want({"/large.bmp", "/a.bmp"});
  RunAll();
  EXPECT_FALSE(Find("/a.bmp").IsEmpty());
  EXPECT_TRUE(Find("/large.bmp").IsEmpty());
}

TEST_F(DecodingAhead, The_current_picture_counts_against_the_budget) {
  const OpenedPicture current = Opened("/a.bmp");
  current.picture.FullPixels();
  Want({"/b.bmp", "/c.bmp", "/d.bmp"}, current, Whole);
  RunAll();
  EXPECT_FALSE(Find("/b.bmp").IsEmpty());
  EXPECT_FALSE(Find("/c.bmp").IsEmpty());
  EXPECT_TRUE(Find("/d.bmp").IsEmpty());
}

TEST_F(DecodingAhead, A_larger_current_picture_drops_the_least_wanted_first) {
  Want({"/a.bmp", "/b.bmp", "/c.bmp"});
  RunAll();
  const OpenedPicture current = Opened("/d.bmp");
  current.picture.FullPixels();
  Want({"/c.bmp", "/a.bmp", "/b.bmp"}, current, Whole);
  EXPECT_FALSE(Find("/c.bmp").IsEmpty());
  EXPECT_FALSE(Find("/a.bmp").IsEmpty());
  EXPECT_TRUE(Find("/b.bmp").IsEmpty());
}

TEST_F(DecodingAhead, A_picture_is_decoded_for_the_size_it_will_be_shown_at) {
  DecodingService roomy(platform.files);
  DecodingService::Client steps(roomy);
  const auto bytes = EncodeJpeg(Pixels::Make({800, 400}, PixelFormat::Rgb, 0xFF336699), 90);
  platform.files.AddFile("/photo.jpg", {bytes.begin(), bytes.end()});
  AddPicture("/scan.bmp", {800, 400});
  const auto read = [&](const std::string& path) {
    steps.Want(DecodingPriority::Neighbours, {});
    steps.Want(DecodingPriority::Neighbours, {{path}, DecodingExtent::Shown, [](Size full) {
                                                return Size{full.width / 4, full.height / 4};
                                              }});
    roomy.RunNext();
    return roomy.Find(path, Stamp(path), {});
  };
  EXPECT_EQ(read("/photo.jpg").HeldBytes(), 200U * 100 * 4);
  EXPECT_EQ(read("/scan.bmp").HeldBytes(), 200U * 100 * 4);
}

TEST_F(DecodingAhead, Looking_for_another_picture_makes_all_work_give_way) {
  // The size is asked for in the middle of the work, where another thread might look for a picture.
  const auto lookElsewhere = [this](Size full) {
    Find("/d.bmp");
    return full;
  };
  Want({"/a.bmp", "/b.bmp"}, {}, lookElsewhere);
  EXPECT_EQ(RunAll(), 1);
  EXPECT_TRUE(Find("/a.bmp").IsEmpty());
}

TEST_F(DecodingAhead, A_wish_made_meanwhile_ends_work_that_is_not_in_it) {
  const auto wantAnother = [this](Size full) {
    Want({"/b.bmp"});
    return full;
  };
  Want({"/a.bmp"}, {}, wantAnother);
  EXPECT_EQ(RunAll(), 2);
  EXPECT_FALSE(Find("/b.bmp").IsEmpty());
  EXPECT_TRUE(Find("/a.bmp").IsEmpty());
}

TEST_F(DecodingAhead, Work_that_a_wish_made_meanwhile_holds_too_goes_on) {
  const auto wantItStill = [this](Size full) {
    Want({"/b.bmp", "/a.bmp"});
    return full;
  };
  Want({"/a.bmp"}, {}, wantItStill);
  EXPECT_EQ(RunAll(), 2);
  EXPECT_FALSE(Find("/a.bmp").IsEmpty());
  EXPECT_FALSE(Find("/b.bmp").IsEmpty());
}

TEST_F(DecodingAhead, A_palette_beside_the_file_comes_with_it) {
  const auto palette = EncodeCutPalette({0xFFFF0000U});
  const auto picture = EncodeCut({{1, 1}, {}, {0}});
  platform.files.AddFile("/halo.pal", {palette.begin(), palette.end()});
  platform.files.AddFile("/halo.cut", {picture.begin(), picture.end()});
  Want({"/halo.cut"});
  RunAll();
  const Picture found = ahead.Find("/halo.cut", PictureStamp(platform.files, "/halo.cut"), {});
  EXPECT_THAT(found.FullPixels().Row(0), testing::ElementsAre(0xFFFF0000U));
}

TEST_F(DecodingAhead, A_drawing_is_opened_and_not_yet_drawn) {
  const auto drawing = EmfWriter(40, 20).MoveTo(1, 1).LineTo(30, 15).File();
  platform.files.AddFile("/drawing.emf", {drawing.begin(), drawing.end()});
  Want({"/drawing.emf"});
  RunAll();
  EXPECT_FALSE(Find("/drawing.emf").IsEmpty());
  EXPECT_EQ(Find("/drawing.emf").HeldBytes(), 0U);
}

TEST_F(DecodingAhead, Whatever_goes_wrong_with_one_picture_the_next_is_read) {
  const auto noMemory = [](Size full) -> Size {
    if (full.width == 50) throw std::bad_alloc();
    return full;
  };
  AddPicture("/small.bmp", {50, 50});
  Want({"/small.bmp", "/a.bmp"}, {}, noMemory);
  EXPECT_EQ(RunAll(), 2);
  EXPECT_FALSE(Find("/a.bmp").IsEmpty());
  EXPECT_TRUE(Find("/small.bmp").IsEmpty());
}

struct GivingWay : DecodingService {
  using DecodingService::DecodingService;
  void GiveWay() override {
    ++times;
    if (onGivingWay) onGivingWay();
  }
  std::function<void()> onGivingWay;
  int times = 0;
};

class DecodingGivingWay : public DecodingAhead {
 protected:
  GivingWay service{platform.files};
  DecodingService::Client reader{service};

  void SetUp() override {
    AddPicture("/large.bmp", {256, 1024});
    reader.Want(DecodingPriority::Neighbours, {{"/large.bmp"}, DecodingExtent::Full});
  }
  Picture Large() { return service.Find("/large.bmp", Stamp("/large.bmp"), {}); }
};

TEST_F(DecodingGivingWay, What_is_read_ahead_gives_way_again_and_again) {
  ASSERT_TRUE(service.RunNext());
  EXPECT_GT(service.times, 4);
}

TEST_F(DecodingGivingWay, It_gives_way_no_more_once_somebody_waits_for_it) {
  std::jthread waiting;
  service.onGivingWay = [&] {
    if (service.times != 3) return;
    waiting = std::jthread([picture = Large()] { picture.FullPixels(); });
    while (!Large().IsAwaited()) std::this_thread::yield();
  };
  ASSERT_TRUE(service.RunNext());
  EXPECT_EQ(service.times, 3);
}

TEST_F(DecodingGivingWay, What_is_shown_gives_way_to_nobody) {
  const auto showing =
      service.Show(Opened("/large.bmp").picture, {256, 1024}, DecodingPriority::Screen, [](const Pixels&) {});
  ASSERT_TRUE(service.RunNextShowing());
  EXPECT_EQ(service.times, 0);
}

// A picture that is being made for half its size while somebody asks for showing it.
class DecodingForItsSize : public DecodingAhead {
 protected:
  GivingWay service{platform.files};
  DecodingService::Client reader{service};
  std::unique_ptr<DecodingService::Showing> showing;
  Size shown;

  void SetUp() override {
    AddPicture("/large.bmp", {256, 1024});
    reader.Want(DecodingPriority::Screen, {{"/large.bmp"}, DecodingExtent::Shown, [](Size full) {
                                             return Size{full.width / 2, full.height / 2};
                                           }});
  }
  Picture Large() { return service.Find("/large.bmp", Stamp("/large.bmp"), {}); }
  void RunWhileShownAt(Size size, DecodingPriority priority = DecodingPriority::Screen) {
    service.onGivingWay = [this, size, priority] {
      if (service.times != 3) return;
      picture = Large();
      // On a thread of its own, as this one holds the picture.
      std::jthread([&] {
        showing =
            service.Show(picture, size, priority, [this](const Pixels& pixels) { shown = pixels.GetSize(); });
      }).join();
    };
    ASSERT_TRUE(service.RunNext());
  }
  Picture picture;
};

TEST_F(DecodingForItsSize, Shown_at_the_same_size_it_goes_on) {
  RunWhileShownAt({128, 512});
  EXPECT_EQ(picture.HeldBytes(), 128U * 512 * 4);
}

TEST_F(DecodingForItsSize, Shown_at_another_size_it_is_made_for_that_one_at_once) {
  RunWhileShownAt({100, 400});
  EXPECT_EQ(picture.HeldBytes(), 0U);
  ASSERT_TRUE(service.RunNext());
  EXPECT_EQ(shown, (Size{100, 400}));
}

TEST_F(DecodingForItsSize, A_small_one_beside_it_does_not_end_it) {
  RunWhileShownAt({40, 160}, DecodingPriority::Page);
  EXPECT_EQ(picture.HeldBytes(), 128U * 512 * 4);
}

}  // namespace
}  // namespace lumidex
