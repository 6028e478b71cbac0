#include "ports/read_ahead.h"

#include <gmock/gmock.h>

#include <new>
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
  platform.files.AddOther("/pipe.bmp");
  Want({"/bad.bmp", "/gone.bmp", "/folder.bmp", "/pipe.bmp", "/a.bmp"});
  EXPECT_EQ(RunAll(), 5);
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

TEST_F(ReadAheadTest, A_palette_beside_the_file_comes_with_it) {
  const auto palette = EncodeCutPalette({0xFFFF0000U});
  const auto picture = EncodeCut({{1, 1}, {}, {0}});
  platform.files.AddFile("/halo.pal", {palette.begin(), palette.end()});
  platform.files.AddFile("/halo.cut", {picture.begin(), picture.end()});
  Want({"/halo.cut"});
  RunAll();
  const Picture found = ahead.Find("/halo.cut", PictureStamp(platform.files, "/halo.cut"), {});
  EXPECT_THAT(found.FullPixels().Row(0), testing::ElementsAre(0xFFFF0000U));
}

TEST_F(ReadAheadTest, A_drawing_is_opened_and_not_yet_drawn) {
  const auto drawing = EmfWriter(40, 20).MoveTo(1, 1).LineTo(30, 15).File();
  platform.files.AddFile("/drawing.emf", {drawing.begin(), drawing.end()});
  Want({"/drawing.emf"});
  RunAll();
  EXPECT_FALSE(Find("/drawing.emf").IsEmpty());
  EXPECT_EQ(Find("/drawing.emf").HeldBytes(), 0U);
}

TEST_F(ReadAheadTest, Whatever_goes_wrong_with_one_picture_the_next_is_read) {
  const auto noMemory = [](Size full) -> Size {
    if (full.width == 50) throw std::bad_alloc();
    return full;
  };
  AddPicture("/small.bmp", {50, 50});
  ahead.Want({}, {{"/small.bmp", "/a.bmp"}, {}, noMemory});
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

class ReadAheadWhileDecoding : public ReadAheadTest {
 protected:
  InterruptedFiles disk{platform.files};
  ReadAhead reading{disk, 3 * pictureBytes};
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
  // Reads /a.bmp; `meanwhile` happens in the midst.
  void ReadAnd(std::function<void()> meanwhile) {
    disk.whileDecoding = [this, meanwhile = std::move(meanwhile)] {
      ++interruptions;
      meanwhile();
    };
    reading.Want({}, {{"/a.bmp"}, {}, Whole});
    reading.RunNext();
    EXPECT_EQ(interruptions, 1);
  }
};

TEST_F(ReadAheadWhileDecoding, Looking_for_the_picture_finds_it_and_it_becomes_whole) {
  Picture found;
  ReadAnd([&] {
    found = FindNow("/a.bmp");
    EXPECT_FALSE(found.IsEmpty());
    // Even when something else is asked for next: somebody has the picture now.
    EXPECT_TRUE(FindNow("/b.bmp").IsEmpty());
  });
  const Pixels pixels = found.FullPixels();
  for (int y = 0; y < 100; ++y) EXPECT_THAT(pixels.Row(y), testing::Each(0xFF123456U)) << y;
  EXPECT_EQ(FindNow("/a.bmp"), found);
}

TEST_F(ReadAheadWhileDecoding, Looking_for_another_picture_leaves_nothing_of_it) {
  ReadAnd([&] { EXPECT_TRUE(FindNow("/b.bmp").IsEmpty()); });
  EXPECT_TRUE(FindNow("/a.bmp").IsEmpty());
}

TEST_F(ReadAheadWhileDecoding, A_file_that_has_changed_by_then_is_not_found) {
  ReadAnd([&] {
    AddPicture("/a.bmp", {50, 50});
    EXPECT_TRUE(FindNow("/a.bmp").IsEmpty());
  });
  EXPECT_TRUE(FindNow("/a.bmp").IsEmpty());
}

TEST_F(ReadAheadWhileDecoding, A_current_picture_that_takes_the_room_meanwhile_keeps_it) {
  AddPicture("/large.bmp", {150, 190});
  const OpenedPicture large = Opened("/large.bmp");
  large.picture.FullPixels();
  ReadAnd([&] { reading.Want(large, {{"/a.bmp"}, {}, Whole}); });
  EXPECT_FALSE(FindNow("/large.bmp").IsEmpty());
  EXPECT_TRUE(FindNow("/a.bmp").IsEmpty());
}

TEST_F(ReadAheadWhileDecoding, Work_that_nobody_wants_any_longer_reads_no_further) {
  AddNoise("/photo.jpg");
  int readBefore = 0;
  disk.whileDecoding = [&] {
    ++interruptions;
    readBefore = disk.reads;
    reading.Want({}, {{"/b.bmp"}, {}, Whole});
  };
  reading.Want({}, {{"/photo.jpg"}, {}, [](Size) { return Size{1, 1}; }});
  reading.RunNext();
  EXPECT_EQ(interruptions, 1);
  EXPECT_EQ(disk.reads, readBefore);
}

TEST_F(ReadAheadWhileDecoding, A_reduced_picture_is_not_begun_when_its_longer_side_leaves_no_room) {
  AddNoise("/photo.jpg");
  disk.whileDecoding = [this] { ++interruptions; };
  const auto readIn = [&](std::size_t budget) {
    interruptions = 0;
    ReadAhead other(disk, budget);
    // Half of its width is needed, so half of its height comes with it.
    other.Want({}, {{"/photo.jpg"}, {}, [](Size) { return Size{400, 10}; }});
    other.RunNext();
    EXPECT_EQ(other.Find("/photo.jpg", Stamp("/photo.jpg"), {}).HeldBytes(), interruptions * 400U * 400 * 4);
    return interruptions;
  };
  EXPECT_EQ(readIn(400U * 400 * 4), 1);
  EXPECT_EQ(readIn(400U * 400 * 4 - 1), 0);
}

}  // namespace
}  // namespace lumidex
