// What may happen in the midst of reading a file ahead.

#include <thread>
#include <utility>

#include "gallery/encoders/jpeg_encoder.h"
#include "pictures/picture_data.h"
#include "pictures/pixels.h"
#include "ports/reading_ahead.h"

namespace lumidex {
namespace {

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

TEST_F(DecodingAheadInTheMidst, Work_for_a_file_that_was_taken_goes_on_for_another_size) {
  Picture found;
  std::unique_ptr<DecodingService::Showing> showing;
  disk.whileDecoding = [&] {
    std::thread([&] {
      found = FindNow("/a.bmp");
      auto smaller = reading.Show(found, {50, 50}, DecodingPriority::Screen, [](const Pixels&) {});
      showing = Show(found);
      smaller.reset();
    }).join();
  };
  steps.Want(DecodingPriority::Screen, {{"/a.bmp"}, DecodingExtent::AtLeast, Whole});
  reading.RunNext();
  EXPECT_FALSE(found.ReadyToShow({100, 100}).IsEmpty());
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

}  // namespace
}  // namespace lumidex
