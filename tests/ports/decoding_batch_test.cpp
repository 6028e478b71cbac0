// Files of a batch or a scan that are read ahead.

#include <utility>

#include "pictures/pixels.h"
#include "ports/reading_ahead.h"

namespace lumidex {
namespace {

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
