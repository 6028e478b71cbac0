// The thread behind the read-ahead: what it reads can be had while and after it is decoded, and nothing that
// was cut short is ever shown. Run under ThreadSanitizer too.

#include "platform/posix/idle_read_ahead.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <filesystem>

#include "pictures/bmp_writer.h"
#include "platform/posix/posix_file_system.h"
#include "posix/temporary_folder.h"

namespace lumidex {
namespace {

constexpr Size size{800, 600};
constexpr int files = 6;

Pixels Numbered(int number) {
  Pixels pixels = Pixels::Make(size, PixelFormat::Rgb, 0);
  for (int y = 0; y < size.height; ++y) {
    for (std::uint32_t& word : pixels.Row(y))
      word = 0xFF000000U | static_cast<std::uint32_t>(number * 1000 + y);
  }
  return pixels;
}

class IdleReadAheadTest : public testing::Test {
 protected:
  void SetUp() override {
    for (int i = 0; i < files; ++i) {
      disk.Write(Path(i), [i](ByteSink& sink) { WriteBmp(Numbered(i), sink); });
    }
    // A stamp says nothing as long as the file is so new that it might change within the same tick.
    for (int i = 0; i < files; ++i) {
      std::filesystem::last_write_time(Path(i),
                                       std::filesystem::file_time_type::clock::now() - std::chrono::hours(1));
    }
  }
  std::string Path(int number) { return folder / (std::to_string(number) + ".bmp"); }
  Picture Find(int number) { return ahead.Find(Path(number), disk.Look(Path(number))->stamp, {}); }
  void Want(std::vector<int> numbers) {
    ReadAhead::Wish wish{{}, {}, [](Size full) { return full; }};
    for (const int number : numbers) wish.paths.push_back(Path(number));
    ahead.Want({}, std::move(wish));
  }
  static void ExpectWhole(const Picture& picture, int number) {
    const Pixels pixels = picture.FullPixels();
    ASSERT_EQ(pixels.GetSize(), size);
    for (const int y : {0, 299, 599}) {
      EXPECT_EQ(pixels.Row(y)[7], 0xFF000000U | static_cast<std::uint32_t>(number * 1000 + y));
    }
  }

  TemporaryFolder folder;
  PosixFileSystem disk;
  IdleReadAhead ahead{disk, std::chrono::milliseconds(0)};
};

TEST_F(IdleReadAheadTest, What_is_wanted_is_decoded_on_the_thread) {
  Want({1, 0});
  ahead.WaitUntilDone();
  EXPECT_TRUE(Find(1).HasPixelsFor(size));
  EXPECT_TRUE(Find(0).HasPixelsFor(size));
  ExpectWhole(Find(1), 1);
}

TEST_F(IdleReadAheadTest, A_program_that_wants_nothing_starts_no_thread_and_ends) {
  Want({});
  ahead.WaitUntilDone();
  EXPECT_TRUE(Find(0).IsEmpty());
}

TEST_F(IdleReadAheadTest, Whatever_is_found_in_the_midst_of_steps_is_whole) {
  int found = 0;
  for (int step = 0; step < 400; ++step) {
    const int here = step * 7 % files;
    Picture picture = Find(here);
    if (!picture.IsEmpty()) {
      ++found;
      ExpectWhole(picture, here);
    }
    Want({(here + 1) % files, (here + files - 1) % files});
    if (step % 3 == 0) Find((here + 3) % files);
    if (step % 50 == 0) ahead.WaitUntilDone();
  }
  EXPECT_GT(found, 0);
}

TEST_F(IdleReadAheadTest, What_is_no_file_is_passed_over_without_waiting_for_it) {
  ASSERT_EQ(mkfifo((folder / "pipe.bmp").c_str(), 0600), 0);
  ahead.Want({}, {{folder / "pipe.bmp", folder / "gone/x.bmp", folder.Path(), Path(2)}, {}, [](Size full) {
                    return full;
                  }});
  ahead.WaitUntilDone();
  EXPECT_TRUE(Find(2).HasPixelsFor(size));
}

TEST_F(IdleReadAheadTest, What_was_found_outlives_an_end_in_the_midst_of_work) {
  for (int round = 0; round < 20; ++round) {
    Picture picture;
    {
      IdleReadAhead other(disk, std::chrono::milliseconds(0));
      other.Want({}, {{Path(3)}, {}, [](Size full) { return full; }});
      other.WaitUntilDone();
      picture = other.Find(Path(3), disk.Look(Path(3))->stamp, {});
      other.Want({}, {{Path(0), Path(1), Path(2)}, {}, [](Size full) { return full; }});
    }
    ASSERT_FALSE(picture.IsEmpty());
    ExpectWhole(picture, 3);
  }
}

TEST_F(IdleReadAheadTest, Work_is_done_in_the_end_whenever_the_current_picture_is_painted) {
  const OpenedPicture current{Path(5), disk.Look(Path(5))->stamp, {}, OpenPicture(disk, Path(5))};
  ahead.Want(current, {{Path(0)}, {}, [](Size full) { return full; }});
  current.picture.FullPixels();
  ahead.WaitUntilDone();
  EXPECT_FALSE(Find(0).IsEmpty());
}

}  // namespace
}  // namespace lumidex
