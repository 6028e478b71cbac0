// The threads behind the decoding service: what they make can be had while and after it is decoded, and
// nothing that was cut short is ever shown. Run under ThreadSanitizer too.

#include "platform/posix/decoding_threads.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <filesystem>
#include <future>

#include "pictures/bmp_writer.h"
#include "platform/posix/posix_file_system.h"
#include "posix/temporary_folder.h"
#include "support/no_threads.h"

namespace lumidex {
namespace {

constexpr Size shownSize{800, 600};
constexpr int files = 6;

Pixels Numbered(int number) {
  Pixels pixels = Pixels::Make(shownSize, PixelFormat::Rgb, 0);
  for (int y = 0; y < shownSize.height; ++y) {
    for (std::uint32_t& word : pixels.Row(y))
      word = 0xFF000000U | static_cast<std::uint32_t>(number * 1000 + y);
  }
  return pixels;
}

class DecodingThreadsTest : public testing::Test {
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
  Picture Find(int number) { return decoding.Find(Path(number), disk.Look(Path(number))->stamp, {}); }
  void Want(std::vector<int> numbers, DecodingPriority priority = DecodingPriority::Neighbours) {
    DecodingService::Wish wish{{}, DecodingExtent::Full};
    for (const int number : numbers) wish.paths.Add(Path(number));
    client.Want(priority, std::move(wish));
  }
  static void ExpectWhole(const Pixels& pixels, int number) {
    ASSERT_EQ(pixels.GetSize(), shownSize);
    for (const int y : {0, 299, 599}) {
      EXPECT_EQ(pixels.Row(y)[7], 0xFF000000U | static_cast<std::uint32_t>(number * 1000 + y));
    }
  }

  TemporaryFolder folder;
  PosixFileSystem disk;
  DecodingThreads decoding{disk, {2, std::chrono::milliseconds(0)}};
  DecodingService::Client client{decoding};
};

TEST_F(DecodingThreadsTest, Neighbours_are_decoded_once_the_program_idles) {
  Want({1, 0});
  decoding.WaitUntilDone();
  EXPECT_FALSE(Find(1).ReadyPixels().IsEmpty());
  EXPECT_FALSE(Find(0).ReadyPixels().IsEmpty());
  ExpectWhole(Find(1).FullPixels(), 1);
}

TEST_F(DecodingThreadsTest, Files_that_somebody_goes_through_are_decoded) {
  Want({1, 0, 2}, DecodingPriority::Batch);
  decoding.WaitUntilDone();
  for (const int number : {1, 0, 2}) {
    const Picture found = Find(number);
    EXPECT_FALSE(found.ReadyPixels().IsEmpty());
    ExpectWhole(found.FullPixels(), number);
  }
}

TEST_F(DecodingThreadsTest, A_picture_that_is_to_be_shown_comes_from_another_thread) {
  std::promise<std::pair<Pixels, std::thread::id>> told;
  const auto showing = decoding.Show(OpenPicture(disk, Path(2)), shownSize, DecodingPriority::Screen,
                                     [&](const Pixels& pixels) {
                                       told.set_value({pixels, std::this_thread::get_id()});
                                     });
  const auto [pixels, thread] = told.get_future().get();
  ExpectWhole(pixels, 2);
  EXPECT_NE(thread, std::this_thread::get_id());
}

TEST_F(DecodingThreadsTest, A_program_that_wants_nothing_starts_no_thread_and_ends) {
  decoding.WaitUntilDone();
  EXPECT_TRUE(Find(0).IsEmpty());
}

TEST_F(DecodingThreadsTest, Whatever_is_found_in_the_midst_of_steps_is_whole) {
  int found = 0;
  for (int step = 0; step < 400; ++step) {
    const int here = step * 7 % files;
    const Picture picture = Find(here);
    if (!picture.IsEmpty()) {
      ++found;
      ExpectWhole(picture.FullPixels(), here);
    }
    Want({(here + 1) % files, (here + files - 1) % files});
    if (step % 3 == 0) Find((here + 3) % files);
    if (step % 50 == 0) decoding.WaitUntilDone();
  }
  EXPECT_GT(found, 0);
}

TEST_F(DecodingThreadsTest, Whatever_is_shown_in_the_midst_of_steps_is_whole) {
  std::atomic<int> shown = 0;
  std::unique_ptr<DecodingService::Showing> showing;
  for (int step = 0; step < 400; ++step) {
    const int here = step * 7 % files;
    Picture picture = Find(here);
    if (picture.IsEmpty()) picture = OpenPicture(disk, Path(here));
    showing =
        decoding.Show(picture, shownSize, DecodingPriority::Screen, [&shown, here](const Pixels& pixels) {
          ExpectWhole(pixels, here);
          ++shown;
        });
    Want({(here + 1) % files, (here + files - 1) % files});
    if (step % 5 == 0) decoding.WaitUntilDone();
  }
  showing.reset();
  decoding.WaitUntilDone();
  EXPECT_GE(shown, 80);
}

TEST_F(DecodingThreadsTest, What_is_no_file_is_passed_over_without_waiting_for_it) {
  ASSERT_EQ(mkfifo((folder / "pipe.bmp").c_str(), 0600), 0);
  client.Want(DecodingPriority::Neighbours,
              {{folder / "pipe.bmp", folder / "gone/x.bmp", folder.Path(), Path(2)}, DecodingExtent::Full});
  decoding.WaitUntilDone();
  EXPECT_FALSE(Find(2).ReadyPixels().IsEmpty());
}

TEST_F(DecodingThreadsTest, What_was_found_outlives_an_end_in_the_midst_of_work) {
  for (int round = 0; round < 20; ++round) {
    Picture picture;
    {
      DecodingThreads other(disk, {2, std::chrono::milliseconds(0)});
      DecodingService::Client steps(other);
      steps.Want(DecodingPriority::Neighbours, {{Path(3)}, DecodingExtent::Full});
      other.WaitUntilDone();
      picture = other.Find(Path(3), disk.Look(Path(3))->stamp, {});
      steps.Want(DecodingPriority::Batch, {{Path(0), Path(1), Path(2)}, DecodingExtent::Full});
    }
    ASSERT_FALSE(picture.IsEmpty());
    ExpectWhole(picture.FullPixels(), 3);
  }
}

TEST_F(DecodingThreadsTest, Going_through_very_many_files_keeps_some_open_and_in_the_end_none) {
  const auto openFiles = [&] {
    const auto isOurs = [&](const auto& entry) {
      std::error_code gone;
      return std::filesystem::read_symlink(entry.path(), gone).string().starts_with(folder.Path());
    };
    return std::ranges::count_if(std::filesystem::directory_iterator("/proc/self/fd"), isOurs);
  };
  std::vector<std::string> paths;
  for (int i = 0; i < 1000; ++i) {
    paths.push_back(folder / ("link" + std::to_string(i) + ".bmp"));
    std::filesystem::create_hard_link(Path(0), paths.back());
  }
  {
    DecodingService::Client reader(decoding);
    reader.Want(DecodingPriority::Batch, {paths, DecodingExtent::Header});
    for (std::size_t i = 0; i < paths.size(); ++i) {
      static_cast<void>(decoding.Find(paths[i], disk.Look(paths[i])->stamp, {}));
      if (i % 50 == 0) {
        EXPECT_LE(openFiles(), 400);
      }
    }
    decoding.WaitUntilDone();
    reader.Want(DecodingPriority::Batch, {});
  }
  decoding.WaitUntilDone();
  EXPECT_EQ(openFiles(), 0);
}

TEST_F(DecodingThreadsTest, Without_threads_what_is_to_be_shown_comes_at_once) {
  const NoThreads none;
  Pixels shown;
  const auto showing = decoding.Show(OpenPicture(disk, Path(2)), shownSize, DecodingPriority::Screen,
                                     [&](const Pixels& pixels) { shown = pixels; });
  ExpectWhole(shown, 2);
}

TEST_F(DecodingThreadsTest, Without_threads_nothing_is_read_ahead_and_nothing_fails) {
  const NoThreads none;
  Want({0, 1}, DecodingPriority::Batch);
  EXPECT_TRUE(Find(0).IsEmpty());
  Want({2});
  EXPECT_TRUE(Find(2).IsEmpty());
}

TEST_F(DecodingThreadsTest, Threads_that_can_be_had_later_are_used) {
  {
    const NoThreads none;
    Want({0, 1}, DecodingPriority::Batch);
  }
  Want({0, 1}, DecodingPriority::Batch);
  decoding.WaitUntilDone();
  EXPECT_FALSE(Find(0).ReadyPixels().IsEmpty());
}

}  // namespace
}  // namespace lumidex
