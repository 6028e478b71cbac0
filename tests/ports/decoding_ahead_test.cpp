// Files that are read ahead, by workers that the test drives by hand.

#include "ports/decoding.h"

#include <gmock/gmock.h>

#include <new>
#include <thread>
#include <utility>

#include "gallery/encoders/bmp_encoder.h"
#include "gallery/encoders/cut_encoder.h"
#include "gallery/encoders/emf_encoder.h"
#include "gallery/encoders/jpeg_encoder.h"
#include "platform/headless/headless_platform.h"

namespace lumidex {
namespace {

Size Whole(Size full) {
  return full;
}

class DecodingAhead : public testing::Test {
 protected:
  static constexpr std::size_t pictureBytes = 100 * 100 * 4;

  HeadlessPlatform platform{'/'};
  // Room for three of the pictures.
  DecodingService ahead{platform.files, 3 * pictureBytes};
  DecodingService::Client client{ahead};

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
  void Want(std::vector<std::string> paths, const OpenedPicture& current = {},
            DecodingService::ShownSize shown = Whole) {
    client.Want(DecodingPriority::Neighbours, {std::move(paths), DecodingExtent::Shown, std::move(shown)},
                current);
  }
  int RunAll() {
    int runs = 0;
    while (ahead.RunNext()) ++runs;
    return runs;
  }
};

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

// The disk with something to do at the first read of a file behind its head: in the midst of decoding.
class InterruptedFiles final : public FileSystem {
 public:
  explicit InterruptedFiles(FileSystem& files) : files_(files) {}
  std::function<void()> whileDecoding;
  mutable int reads = 0;

  char Separator() const override { return files_.Separator(); }
  std::vector<std::string> Drives() const override { return files_.Drives(); }
  std::string DriveOf(const std::string& path) const override { return files_.DriveOf(path); }
  std::string CurrentDirectory() const override { return files_.CurrentDirectory(); }
  void ChDir(const std::string& path) override { files_.ChDir(path); }
  std::string Normalised(const std::string& path) const override { return files_.Normalised(path); }
  std::vector<DirectoryEntry> ReadDirectory(const std::string& path) const override {
    return files_.ReadDirectory(path);
  }
  std::uint64_t DirectoryStamp(const std::string& path) const override { return files_.DirectoryStamp(path); }
  std::optional<FileFacts> Look(const std::string& path) const override { return files_.Look(path); }
  std::shared_ptr<const ByteSource> Open(const std::string& path) const override {
    return std::make_shared<Source>(files_.Open(path), whileDecoding, reads);
  }
  void Write(const std::string& path, const Produce& produce) override { files_.Write(path, produce); }
  void WriteOver(const std::string& path, std::string_view content) override {
    files_.WriteOver(path, content);
  }
  void Remove(const std::string& path) override { files_.Remove(path); }
  void MakeDirectory(const std::string& path) override { files_.MakeDirectory(path); }

 private:
  std::unique_ptr<ByteSink> OpenAtEnd(const std::string&, bool) override { return nullptr; }
  class Source final : public ByteSource {
   public:
    Source(std::shared_ptr<const ByteSource> source, std::function<void()> once, int& reads)
        : source_(std::move(source)), once_(std::move(once)), reads_(reads) {}
    std::uint64_t Size() const override { return source_->Size(); }
    std::size_t ReadAt(std::uint64_t offset, std::span<std::uint8_t> into) const override {
      ++reads_;
      if (offset >= PictureData::HeadSize && once_) std::exchange(once_, {})();
      return source_->ReadAt(offset, into);
    }

   private:
    std::shared_ptr<const ByteSource> source_;
    mutable std::function<void()> once_;
    int& reads_;
  };
  FileSystem& files_;
};

class DecodingAheadInTheMidst : public DecodingAhead {
 protected:
  InterruptedFiles disk{platform.files};
  DecodingService reading{disk, 3 * pictureBytes};
  DecodingService::Client steps{reading};
  int interruptions = 0;

  // 800 by 800 pixels that take several reads.
  void AddNoise(const std::string& path) {
    Pixels noise = Pixels::Make({800, 800}, PixelFormat::Rgb, 0);
    std::uint32_t state = 1;
    for (int y = 0; y < 800; ++y) {
      for (std::uint32_t& word : noise.Row(y))
        word = 0xFF000000U | (state = state * 1664525 + 1013904223) >> 8;
    }
    const auto bytes = EncodeJpeg(noise, 50);
    platform.files.AddFile(path, {bytes.begin(), bytes.end()});
  }
  Picture FindNow(const std::string& path) { return reading.Find(path, Stamp(path), {}); }
  void WantNow(std::vector<std::string> paths, const OpenedPicture& current = {}) {
    steps.Want(DecodingPriority::Neighbours, {std::move(paths), DecodingExtent::Shown, Whole}, current);
  }
  // Reads /a.bmp; `meanwhile` happens in the midst.
  void ReadAnd(std::function<void()> meanwhile) {
    disk.whileDecoding = [this, meanwhile = std::move(meanwhile)] {
      ++interruptions;
      // As in the program, where the one who reads ahead asks for nothing.
      std::thread(meanwhile).join();
    };
    WantNow({"/a.bmp"});
    reading.RunNext();
    EXPECT_EQ(interruptions, 1);
  }
  std::unique_ptr<DecodingService::Showing> Show(const Picture& picture) {
    return reading.Show(picture, {100, 100}, DecodingPriority::Screen, [](const Pixels&) {});
  }
  static void ExpectWhole(const Picture& picture) {
    const Pixels pixels = picture.FullPixels();
    for (int y = 0; y < 100; ++y) EXPECT_THAT(pixels.Row(y), testing::Each(0xFF123456U)) << y;
  }
};

TEST_F(DecodingAheadInTheMidst, The_state_is_told) {
  WantNow({"/a.bmp", "/gone.bmp"});
  EXPECT_EQ(reading.StateOf("/a.bmp"), DecodingState::Asked);
  EXPECT_EQ(reading.StateOf("/b.bmp"), std::nullopt);
  disk.whileDecoding = [&] { EXPECT_EQ(reading.StateOf("/a.bmp"), DecodingState::HeaderKnown); };
  reading.RunNext();
  EXPECT_EQ(reading.StateOf("/a.bmp"), DecodingState::Decoded);
  steps.Want(DecodingPriority::Batch, {{"/gone.bmp"}});
  reading.RunNext();
  EXPECT_EQ(reading.StateOf("/gone.bmp"), DecodingState::Failed);
}

TEST_F(DecodingAheadInTheMidst, Looking_for_the_picture_finds_it_and_the_work_goes_on) {
  Picture found;
  ReadAnd([&] {
    found = FindNow("/a.bmp");
    EXPECT_FALSE(found.IsEmpty());
  });
  EXPECT_FALSE(found.ReadyToShow({100, 100}).IsEmpty());
  EXPECT_EQ(FindNow("/a.bmp"), found);
  ExpectWhole(found);
}

TEST_F(DecodingAheadInTheMidst, Nobody_ever_sees_a_picture_whose_work_was_ended) {
  Picture found;
  ReadAnd([&] {
    found = FindNow("/a.bmp");
    EXPECT_TRUE(FindNow("/b.bmp").IsEmpty());
  });
  EXPECT_TRUE(found.ReadyToShow({100, 100}).IsEmpty());
  EXPECT_EQ(found.HeldBytes(), 0U);
  ExpectWhole(found);
}

TEST_F(DecodingAheadInTheMidst, Work_goes_on_for_a_picture_that_is_to_be_shown) {
  Picture found;
  std::unique_ptr<DecodingService::Showing> showing;
  ReadAnd([&] {
    found = FindNow("/a.bmp");
    showing = Show(found);
    EXPECT_TRUE(FindNow("/b.bmp").IsEmpty());
  });
  EXPECT_FALSE(found.ReadyToShow({100, 100}).IsEmpty());
}

TEST_F(DecodingAheadInTheMidst, Work_ends_when_the_picture_is_not_to_be_shown_any_longer) {
  Picture found;
  ReadAnd([&] {
    found = FindNow("/a.bmp");
    auto showing = Show(found);
    EXPECT_TRUE(FindNow("/b.bmp").IsEmpty());
    showing.reset();
  });
  EXPECT_EQ(found.HeldBytes(), 0U);
}

TEST_F(DecodingAheadInTheMidst, Work_for_a_file_that_was_taken_ends_when_it_is_not_to_be_shown_any_longer) {
  Picture found;
  disk.whileDecoding = [&] {
    std::thread([&] {
      found = FindNow("/a.bmp");
      Show(OpenPicture(platform.files, "/b.bmp")).reset();
      Show(found).reset();
    }).join();
  };
  steps.Want(DecodingPriority::Screen, {{"/a.bmp"}, DecodingExtent::AtLeast, Whole});
  reading.RunNext();
  EXPECT_EQ(found.HeldBytes(), 0U);
  ExpectWhole(found);
}

TEST_F(DecodingAheadInTheMidst, Looking_for_another_picture_leaves_nothing_of_it) {
  ReadAnd([&] { EXPECT_TRUE(FindNow("/b.bmp").IsEmpty()); });
  EXPECT_TRUE(FindNow("/a.bmp").IsEmpty());
}

TEST_F(DecodingAheadInTheMidst, A_file_that_has_changed_by_then_is_not_found) {
  ReadAnd([&] {
    AddPicture("/a.bmp", {50, 50});
    EXPECT_TRUE(FindNow("/a.bmp").IsEmpty());
  });
  EXPECT_TRUE(FindNow("/a.bmp").IsEmpty());
}

TEST_F(DecodingAheadInTheMidst, A_current_picture_that_takes_the_room_meanwhile_keeps_it) {
  AddPicture("/large.bmp", {150, 190});
  const OpenedPicture large = Opened("/large.bmp");
  large.picture.FullPixels();
  ReadAnd([&] { WantNow({"/a.bmp"}, large); });
  EXPECT_FALSE(FindNow("/large.bmp").IsEmpty());
  EXPECT_TRUE(FindNow("/a.bmp").IsEmpty());
}

TEST_F(DecodingAheadInTheMidst, Work_that_nobody_wants_any_longer_reads_no_further) {
  AddNoise("/photo.jpg");
  int readBefore = 0;
  disk.whileDecoding = [&] {
    ++interruptions;
    readBefore = disk.reads;
    WantNow({"/b.bmp"});
  };
  steps.Want(DecodingPriority::Neighbours, {{"/photo.jpg"}, DecodingExtent::Shown, [](Size) {
                                              return Size{1, 1};
                                            }});
  reading.RunNext();
  EXPECT_EQ(interruptions, 1);
  EXPECT_EQ(disk.reads, readBefore);
}

TEST_F(DecodingAheadInTheMidst, A_reduced_picture_is_not_begun_when_its_longer_side_leaves_no_room) {
  AddNoise("/photo.jpg");
  disk.whileDecoding = [this] { ++interruptions; };
  const auto readIn = [&](std::size_t budget) {
    interruptions = 0;
    DecodingService other(disk, budget);
    DecodingService::Client files(other);
    // Half of its width is needed, so half of its height comes with it.
    files.Want(DecodingPriority::Neighbours, {{"/photo.jpg"}, DecodingExtent::AtLeast, [](Size) {
                                                return Size{400, 10};
                                              }});
    other.RunNext();
    EXPECT_EQ(other.Find("/photo.jpg", Stamp("/photo.jpg"), {}).HeldBytes(), interruptions * 400U * 400 * 4);
    return interruptions;
  };
  EXPECT_EQ(readIn(400U * 400 * 4), 1);
  EXPECT_EQ(readIn(400U * 400 * 4 - 1), 0);
}

// Who goes through a list of files, as a batch does.
class GoingThroughFiles : public DecodingAhead {
 protected:
  void Go(DecodingExtent extent, std::vector<std::string> paths) {
    client.Want(DecodingPriority::Batch, {std::move(paths), extent});
  }
};

TEST_F(GoingThroughFiles, They_are_read_in_their_order_without_waiting_for_idleness) {
  Go(DecodingExtent::Full, {"/b.bmp", "/a.bmp"});
  EXPECT_TRUE(ahead.RunNext(false));
  EXPECT_EQ(ahead.StateOf("/b.bmp"), DecodingState::Decoded);
  EXPECT_EQ(ahead.StateOf("/a.bmp"), DecodingState::Asked);
}

TEST_F(GoingThroughFiles, In_full_means_all_pixels) {
  Go(DecodingExtent::Full, {"/a.bmp"});
  RunAll();
  EXPECT_FALSE(Find("/a.bmp").ReadyPixels().IsEmpty());
}

TEST_F(GoingThroughFiles, Header_facts_cost_no_pixels) {
  Go(DecodingExtent::Header, {"/a.bmp"});
  RunAll();
  EXPECT_EQ(ahead.StateOf("/a.bmp"), DecodingState::HeaderKnown);
  const Picture found = Find("/a.bmp");
  EXPECT_EQ(found.GetSize(), (Size{100, 100}));
  EXPECT_EQ(found.HeldBytes(), 0U);
}

TEST_F(GoingThroughFiles, A_file_that_was_taken_is_let_go_with_all_before_it) {
  Go(DecodingExtent::Full, {"/a.bmp", "/b.bmp", "/c.bmp"});
  RunAll();
  EXPECT_FALSE(Find("/b.bmp").IsEmpty());
  EXPECT_EQ(ahead.StateOf("/a.bmp"), std::nullopt);
  EXPECT_EQ(ahead.StateOf("/b.bmp"), std::nullopt);
  EXPECT_EQ(ahead.StateOf("/c.bmp"), DecodingState::Decoded);
}

TEST_F(GoingThroughFiles, What_has_no_room_waits_until_something_is_taken) {
  Go(DecodingExtent::Full, {"/a.bmp", "/b.bmp", "/c.bmp", "/d.bmp"});
  EXPECT_EQ(RunAll(), 4);
  EXPECT_EQ(ahead.StateOf("/d.bmp"), DecodingState::HeaderKnown);
  EXPECT_FALSE(Find("/a.bmp").IsEmpty());
  EXPECT_EQ(RunAll(), 1);
  EXPECT_EQ(ahead.StateOf("/d.bmp"), DecodingState::Decoded);
}

TEST_F(GoingThroughFiles, A_picture_larger_than_the_budget_is_opened_all_the_same) {
  AddPicture("/large.bmp", {200, 200});
  Go(DecodingExtent::Full, {"/large.bmp", "/a.bmp"});
  RunAll();
  EXPECT_EQ(Find("/large.bmp").GetSize(), (Size{200, 200}));
  RunAll();
  EXPECT_FALSE(Find("/a.bmp").ReadyPixels().IsEmpty());
}

TEST_F(GoingThroughFiles, One_that_was_opened_by_somebody_else_first_is_not_read_for_nothing) {
  Go(DecodingExtent::Header, {"/a.bmp", "/b.bmp", "/c.bmp"});
  EXPECT_TRUE(Find("/b.bmp").IsEmpty());
  EXPECT_EQ(RunAll(), 1);
  EXPECT_FALSE(Find("/c.bmp").IsEmpty());
}

TEST_F(GoingThroughFiles, No_more_files_than_some_dozens_are_open_at_a_time) {
  std::vector<std::string> paths;
  for (int i = 0; i < 100; ++i) {
    paths.push_back("/many" + std::to_string(i) + ".bmp");
    AddPicture(paths.back(), {1, 1});
  }
  Go(DecodingExtent::Header, paths);
  EXPECT_EQ(RunAll(), 32);
  for (int i = 0; i < 100; ++i) {
    EXPECT_FALSE(Find(paths[static_cast<std::size_t>(i)]).IsEmpty());
    RunAll();
  }
}

TEST_F(GoingThroughFiles, Those_who_read_are_woken_for_many_files_at_a_time) {
  struct CountedService : DecodingService {
    using DecodingService::DecodingService;
    int wakes = 0;
    void Woken(bool) override { ++wakes; }
  };
  CountedService service(platform.files);
  std::vector<std::string> paths;
  for (int i = 0; i < 100; ++i) {
    paths.push_back("/many/" + std::to_string(i) + ".bmp");
    AddPicture(paths.back());
  }
  DecodingService::Client reader(service);
  reader.Want(DecodingPriority::Batch, {paths});
  while (service.RunNext()) {
  }
  service.wakes = 0;
  int wakes = 0;
  for (const std::string& path : paths) {
    EXPECT_FALSE(service.Find(path, Stamp(path), {}).IsEmpty()) << path;
    if (service.wakes > wakes) {
      while (service.RunNext()) {
      }
      wakes = service.wakes;
    }
  }
  EXPECT_LE(wakes, 100 / 16 + 1);
}

TEST_F(GoingThroughFiles, Files_that_can_not_be_read_stop_nobody) {
  platform.files.AddFile("/bad.bmp", "no picture");
  Go(DecodingExtent::Full, {"/bad.bmp", "/gone.bmp", "/a.bmp"});
  RunAll();
  EXPECT_TRUE(ahead.Find("/bad.bmp", Stamp("/bad.bmp"), {}).IsEmpty());
  EXPECT_FALSE(Find("/a.bmp").IsEmpty());
}

TEST_F(GoingThroughFiles, They_come_behind_the_cells_of_a_page_and_those_behind_neighbours) {
  DecodingService::Client page(ahead), steps(ahead);
  Go(DecodingExtent::Header, {"/a.bmp"});
  page.Want(DecodingPriority::Page, {{"/b.bmp"}});
  steps.Want(DecodingPriority::Neighbours, {{"/c.bmp"}});
  ahead.RunNext();
  EXPECT_EQ(ahead.StateOf("/c.bmp"), DecodingState::HeaderKnown);
  ahead.RunNext();
  EXPECT_EQ(ahead.StateOf("/b.bmp"), DecodingState::HeaderKnown);
  EXPECT_EQ(ahead.StateOf("/a.bmp"), DecodingState::Asked);
}

TEST_F(GoingThroughFiles, A_step_in_between_does_not_end_a_batch) {
  Go(DecodingExtent::Full, {"/a.bmp", "/b.bmp"});
  ahead.RunNext();
  EXPECT_TRUE(Find("/d.bmp").IsEmpty());
  EXPECT_EQ(ahead.StateOf("/a.bmp"), DecodingState::Decoded);
  EXPECT_EQ(RunAll(), 1);
}

TEST_F(GoingThroughFiles, What_was_read_goes_with_whoever_wished_it) {
  {
    DecodingService::Client gone(ahead);
    gone.Want(DecodingPriority::Batch, {{"/a.bmp"}, DecodingExtent::Full});
    RunAll();
  }
  EXPECT_TRUE(Find("/a.bmp").IsEmpty());
}

}  // namespace
}  // namespace lumidex
