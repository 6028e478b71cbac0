// Files of a batch or a scan that are read ahead.

#include <algorithm>
#include <chrono>
#include <functional>
#include <utility>

#include "pictures/pixels.h"
#include "platform/headless/memory_file_system.h"
#include "ports/reading_ahead.h"

namespace lumidex {
namespace {

// Who goes through a list of files, as a batch does.
class GoingThroughFiles : public DecodingAhead {
 protected:
  void Go(DecodingExtent extent, std::vector<std::string> paths) {
    client.Want(DecodingPriority::Batch, {std::move(paths), extent});
  }
  std::vector<std::string> Many(int count) {
    std::vector<std::string> paths;
    for (int i = 0; i < count; ++i) {
      paths.push_back("/many" + std::to_string(i) + ".bmp");
      AddPicture(paths.back(), {1, 1});
    }
    return paths;
  }
  bool IsOpened(const std::string& path) {
    const auto state = ahead.StateOf(path);
    return state == DecodingState::HeaderKnown || state == DecodingState::Decoded;
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
  for (const auto& [extent, most] :
       {std::pair(DecodingExtent::Full, 32), std::pair(DecodingExtent::Header, 256)}) {
    const std::vector<std::string> paths = Many(300);
    Go(extent, paths);
    RunAll();
    EXPECT_EQ(std::ranges::count_if(paths, [&](const auto& path) { return IsOpened(path); }), most);
    for (const std::string& path : paths) {
      EXPECT_FALSE(Find(path).IsEmpty()) << path;
      RunAll();
    }
  }
}

TEST_F(GoingThroughFiles, Headers_are_read_some_at_a_time) {
  const std::vector<std::string> paths = Many(20);
  Go(DecodingExtent::Header, paths);
  EXPECT_TRUE(ahead.RunNext(false));
  EXPECT_TRUE(IsOpened(paths[0]));
  EXPECT_TRUE(IsOpened(paths[7]));
  EXPECT_EQ(ahead.StateOf(paths[8]), DecodingState::Asked);
  EXPECT_EQ(RunAll(), 2);
  EXPECT_TRUE(IsOpened(paths[19]));
}

TEST_F(GoingThroughFiles, A_file_that_is_listed_twice_is_there_twice) {
  Go(DecodingExtent::Header, {"/a.bmp", "/a.bmp", "/b.bmp", "/a.bmp"});
  RunAll();
  for (const char* path : {"/a.bmp", "/a.bmp", "/b.bmp", "/a.bmp"})
    EXPECT_FALSE(Find(path).IsEmpty()) << path;
}

// A disk on which something happens whenever a file of it is opened.
struct WatchedDisk : MemoryFileSystem {
  using MemoryFileSystem::MemoryFileSystem;
  std::shared_ptr<const ByteSource> Open(const std::string& path) const override {
    if (OnOpen) OnOpen(path);
    return MemoryFileSystem::Open(path);
  }
  std::function<void(const std::string&)> OnOpen;
};

class ReadingHeaders : public testing::Test {
 protected:
  void SetUp() override {
    const auto bytes = EncodeBmp(Pixels::Make({1, 1}, PixelFormat::Rgb, 0));
    for (int i = 0; i < 64; ++i) {
      paths.push_back("/" + std::to_string(i) + ".bmp");
      disk.AddFile(paths.back(), {bytes.begin(), bytes.end()});
    }
    client.Want(DecodingPriority::Batch, {paths, DecodingExtent::Header});
  }
  Picture Find(const std::string& path) { return ahead.Find(path, disk.Look(path)->stamp, {}); }
  bool IsOpened(int place) {
    return ahead.StateOf(paths[static_cast<std::size_t>(place)]) == DecodingState::HeaderKnown;
  }

  CallLog log;
  WatchedDisk disk{'/', log, [] { return std::int64_t{0}; }};
  DecodingService ahead{disk};
  DecodingService::Client client{ahead};
  std::vector<std::string> paths;
};

TEST_F(ReadingHeaders, A_second_thread_leaves_the_processor_to_whoever_goes_through_them) {
  std::vector<bool> helped;
  // What happens inside of an opening happens while its reader is at work.
  disk.OnOpen = [&](const std::string& path) {
    if (path == paths[0]) helped.push_back(ahead.RunNext());
  };
  EXPECT_TRUE(ahead.RunNext());
  EXPECT_EQ(helped, std::vector{false});
}

TEST_F(ReadingHeaders, A_second_thread_helps_where_they_have_to_be_waited_for) {
  std::vector<bool> helped;
  disk.OnOpen = [&](const std::string& path) {
    if (path == paths[8]) helped.push_back(ahead.RunNext());
    // Slower than any disk's cache.
    const auto begun = std::chrono::steady_clock::now();
    while (std::chrono::steady_clock::now() - begun < std::chrono::microseconds(100)) {
    }
  };
  EXPECT_TRUE(ahead.RunNext());
  // One is left of the first eight, so that the next ones are urgent.
  EXPECT_FALSE(Find(paths[6]).IsEmpty());
  EXPECT_TRUE(ahead.RunNext());
  EXPECT_EQ(helped, std::vector{true});
  EXPECT_TRUE(IsOpened(23));
}

TEST_F(ReadingHeaders, A_file_that_was_passed_meanwhile_is_left_alone) {
  std::vector<std::string> opened;
  bool isFound = true;
  disk.OnOpen = [&](const std::string& path) {
    opened.push_back(path);
    if (path == paths[1]) isFound = !Find(paths[5]).IsEmpty();
  };
  ahead.RunNext();
  EXPECT_FALSE(isFound);
  EXPECT_EQ(opened, (std::vector{paths[0], paths[1], paths[6], paths[7]}));
  EXPECT_FALSE(Find(paths[6]).IsEmpty());
}

TEST_F(ReadingHeaders, What_is_to_be_shown_comes_between_them) {
  const Picture picture = Picture::FromPixels(Pixels::Make({4, 4}, PixelFormat::Argb, 0x80FF0000), 32);
  std::unique_ptr<DecodingService::Showing> showing;
  std::vector<std::string> order;
  disk.OnOpen = [&](const std::string& path) {
    order.push_back(path);
    if (path != paths[2]) return;
    showing = ahead.Show(picture, {2, 2}, DecodingPriority::Screen,
                         [&](const Pixels&) { order.push_back("shown"); });
  };
  ahead.RunNext();
  ASSERT_GE(order.size(), 5U);
  EXPECT_EQ(order[2], paths[2]);
  EXPECT_EQ(order[3], "shown");
  EXPECT_EQ(order[4], paths[3]);
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
