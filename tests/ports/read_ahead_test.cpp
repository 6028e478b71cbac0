#include "ports/read_ahead.h"

#include <gmock/gmock.h>

#include "gallery/encoders/bmp_encoder.h"
#include "gallery/encoders/jpeg_encoder.h"
#include "platform/headless/headless_platform.h"

namespace lumidex {
namespace {

Size Whole(Size full) {
  return full;
}

class ReadAheadTest : public testing::Test {
 protected:
  static constexpr std::size_t pictureBytes = 100 * 100 * 4;

  HeadlessPlatform platform{'/'};
  // Room for three of the pictures.
  ReadAhead ahead{platform.files, 3 * pictureBytes};

  void SetUp() override {
    for (const char* path : {"/a.bmp", "/b.bmp", "/c.bmp", "/d.bmp"}) AddPicture(path);
  }
  void AddPicture(const std::string& path, Size size = {100, 100}) {
    const auto bytes = EncodeBmp(Pixels::Make(size, PixelFormat::Rgb, 0xFF123456));
    platform.files.AddFile(path, {bytes.begin(), bytes.end()});
  }
  std::uint64_t Stamp(const std::string& path) { return platform.files.Look(path)->stamp; }
  Picture Find(const std::string& path) { return ahead.Find(path, Stamp(path), {}); }
  OpenedPicture Opened(const std::string& path) {
    return {path, Stamp(path), {}, OpenPicture(platform.files, path)};
  }
  void Want(std::vector<std::string> paths) { ahead.Want({}, {std::move(paths), {}, Whole}); }
  int RunAll() {
    int runs = 0;
    while (ahead.RunNext()) ++runs;
    return runs;
  }
};

TEST_F(ReadAheadTest, Nothing_is_read_before_its_turn) {
  Want({"/a.bmp"});
  EXPECT_TRUE(ahead.HasWork());
  EXPECT_TRUE(Find("/a.bmp").IsEmpty());
}

TEST_F(ReadAheadTest, The_first_wish_is_read_first) {
  Want({"/b.bmp", "/a.bmp"});
  EXPECT_TRUE(ahead.RunNext());
  EXPECT_FALSE(Find("/b.bmp").IsEmpty());
  EXPECT_TRUE(Find("/a.bmp").IsEmpty());
}

TEST_F(ReadAheadTest, What_was_read_has_its_pixels_and_is_found_more_than_once) {
  Want({"/a.bmp", "/b.bmp"});
  EXPECT_EQ(RunAll(), 2);
  EXPECT_FALSE(ahead.HasWork());
  EXPECT_TRUE(Find("/a.bmp").HasPixelsFor({100, 100}));
  EXPECT_EQ(Find("/a.bmp"), Find("/a.bmp"));
  EXPECT_FALSE(Find("/b.bmp").IsEmpty());
}

TEST_F(ReadAheadTest, A_newer_wish_replaces_the_older_ones) {
  Want({"/a.bmp", "/b.bmp"});
  Want({"/c.bmp"});
  EXPECT_EQ(RunAll(), 1);
  EXPECT_TRUE(Find("/a.bmp").IsEmpty());
}

TEST_F(ReadAheadTest, What_is_wanted_still_is_not_read_again) {
  Want({"/a.bmp"});
  RunAll();
  const Picture first = Find("/a.bmp");
  Want({"/b.bmp", "/a.bmp"});
  EXPECT_EQ(RunAll(), 1);
  EXPECT_EQ(Find("/a.bmp"), first);
}

TEST_F(ReadAheadTest, What_is_wanted_no_longer_is_let_go) {
  Want({"/a.bmp"});
  RunAll();
  Want({"/b.bmp"});
  EXPECT_TRUE(Find("/a.bmp").IsEmpty());
}

TEST_F(ReadAheadTest, The_current_picture_is_kept_and_stays_as_a_neighbour) {
  const OpenedPicture current = Opened("/a.bmp");
  ahead.Want(current, {{"/b.bmp"}, {}, Whole});
  EXPECT_EQ(Find("/a.bmp"), current.picture);
  ahead.Want(Opened("/b.bmp"), {{"/c.bmp", "/a.bmp"}, {}, Whole});
  EXPECT_EQ(Find("/a.bmp"), current.picture);
  ahead.Want(Opened("/c.bmp"), {{"/d.bmp", "/b.bmp"}, {}, Whole});
  EXPECT_TRUE(Find("/a.bmp").IsEmpty());
}

TEST_F(ReadAheadTest, The_current_picture_comes_first) {
  const OpenedPicture current = Opened("/a.bmp");
  ahead.Want(current, {{"/b.bmp"}, {}, Whole});
  EXPECT_TRUE(ahead.CurrentIsPending());
  current.picture.FullPixels();
  EXPECT_FALSE(ahead.CurrentIsPending());
}

TEST_F(ReadAheadTest, A_file_that_has_changed_is_not_found) {
  Want({"/a.bmp"});
  RunAll();
  const std::uint64_t before = Stamp("/a.bmp");
  AddPicture("/a.bmp", {50, 50});
  EXPECT_TRUE(Find("/a.bmp").IsEmpty());
  EXPECT_EQ(ahead.Find("/a.bmp", before, {}).GetSize(), (Size{100, 100}));
}

TEST_F(ReadAheadTest, A_file_that_can_not_be_told_apart_is_not_found) {
  Want({"/a.bmp"});
  RunAll();
  EXPECT_TRUE(ahead.Find("/a.bmp", 0, {}).IsEmpty());
}

TEST_F(ReadAheadTest, A_picture_decoded_with_other_options_is_not_found) {
  Want({"/a.bmp"});
  RunAll();
  DecoderOptions other;
  other.reduceColours = true;
  EXPECT_TRUE(ahead.Find("/a.bmp", Stamp("/a.bmp"), other).IsEmpty());
}

TEST_F(ReadAheadTest, What_can_not_be_read_is_passed_over) {
  platform.files.AddFile("/bad.bmp", "no picture");
  platform.files.AddDirectory("/folder.bmp");
  Want({"/bad.bmp", "/gone.bmp", "/folder.bmp", "/a.bmp"});
  EXPECT_EQ(RunAll(), 4);
  EXPECT_TRUE(ahead.Find("/bad.bmp", Stamp("/bad.bmp"), {}).IsEmpty());
  EXPECT_FALSE(Find("/a.bmp").IsEmpty());
}

TEST_F(ReadAheadTest, What_does_not_fit_into_the_budget_is_not_decoded) {
  AddPicture("/large.bmp", {200, 200});
  Want({"/large.bmp", "/a.bmp"});
  RunAll();
  EXPECT_FALSE(Find("/a.bmp").IsEmpty());
  EXPECT_TRUE(Find("/large.bmp").IsEmpty());
}

TEST_F(ReadAheadTest, The_current_picture_counts_against_the_budget) {
  const OpenedPicture current = Opened("/a.bmp");
  current.picture.FullPixels();
  ahead.Want(current, {{"/b.bmp", "/c.bmp", "/d.bmp"}, {}, Whole});
  RunAll();
  EXPECT_FALSE(Find("/b.bmp").IsEmpty());
  EXPECT_FALSE(Find("/c.bmp").IsEmpty());
  EXPECT_TRUE(Find("/d.bmp").IsEmpty());
}

TEST_F(ReadAheadTest, A_larger_current_picture_drops_the_least_wanted_first) {
  Want({"/a.bmp", "/b.bmp", "/c.bmp"});
  RunAll();
  const OpenedPicture current = Opened("/d.bmp");
  current.picture.FullPixels();
  ahead.Want(current, {{"/c.bmp", "/a.bmp", "/b.bmp"}, {}, Whole});
  EXPECT_FALSE(Find("/c.bmp").IsEmpty());
  EXPECT_FALSE(Find("/a.bmp").IsEmpty());
  EXPECT_TRUE(Find("/b.bmp").IsEmpty());
}

TEST_F(ReadAheadTest, A_format_that_can_is_decoded_at_the_size_it_will_be_shown_at) {
  const auto bytes = EncodeJpeg(Pixels::Make({800, 400}, PixelFormat::Rgb, 0xFF336699), 90);
  platform.files.AddFile("/photo.jpg", {bytes.begin(), bytes.end()});
  ReadAhead roomy(platform.files);
  const auto read = [&] {
    roomy.Want({}, {});
    roomy.Want({}, {{"/photo.jpg"}, {}, [](Size full) { return Size{full.width / 4, full.height / 4}; }});
    roomy.RunNext();
    return roomy.Find("/photo.jpg", Stamp("/photo.jpg"), {});
  };
  EXPECT_EQ(read().HeldBytes(), 200U * 100 * 4);
  roomy.SetDevicePixels(1.5);
  EXPECT_EQ(read().HeldBytes(), 300U * 150 * 4);
}

TEST_F(ReadAheadTest, Looking_for_another_picture_makes_all_work_give_way) {
  // The size is asked for in the middle of the work, where another thread might look for a picture.
  const auto lookElsewhere = [this](Size full) {
    Find("/d.bmp");
    return full;
  };
  ahead.Want({}, {{"/a.bmp", "/b.bmp"}, {}, lookElsewhere});
  EXPECT_EQ(RunAll(), 1);
  EXPECT_TRUE(Find("/a.bmp").IsEmpty());
}

TEST_F(ReadAheadTest, A_wish_made_meanwhile_ends_work_that_is_not_in_it) {
  const auto wantAnother = [this](Size full) {
    Want({"/b.bmp"});
    return full;
  };
  ahead.Want({}, {{"/a.bmp"}, {}, wantAnother});
  EXPECT_EQ(RunAll(), 2);
  EXPECT_FALSE(Find("/b.bmp").IsEmpty());
  EXPECT_TRUE(Find("/a.bmp").IsEmpty());
}

TEST_F(ReadAheadTest, Work_that_a_wish_made_meanwhile_holds_too_goes_on) {
  const auto wantItStill = [this](Size full) {
    Want({"/b.bmp", "/a.bmp"});
    return full;
  };
  ahead.Want({}, {{"/a.bmp"}, {}, wantItStill});
  EXPECT_EQ(RunAll(), 2);
  EXPECT_FALSE(Find("/a.bmp").IsEmpty());
  EXPECT_FALSE(Find("/b.bmp").IsEmpty());
}

}  // namespace
}  // namespace lumidex
