#include "base/memory_pages.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <vector>

namespace lumidex {
namespace {

// As windows have it: shared with another process, and provided page by page.
struct SharedMemory : testing::Test {
  explicit SharedMemory(std::size_t itsPages = 200, int kind = MAP_SHARED)
      : pages(itsPages),
        first(static_cast<std::byte*>(
            mmap(nullptr, pages * page, PROT_READ | PROT_WRITE, kind | MAP_ANONYMOUS, -1, 0))) {}
  ~SharedMemory() override { munmap(first, pages * page); }
  std::size_t Provided() const {
    std::vector<unsigned char> states(pages);
    if (mincore(first, pages * page, states.data()) != 0) return 0;
    return static_cast<std::size_t>(
        std::ranges::count_if(states, [](unsigned char state) { return state & 1; }));
  }
  bool CanBeAsked() const { return madvise(nullptr, 0, MADV_POPULATE_WRITE) == 0; }

  const std::size_t page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  const std::size_t pages;  // more than are provided by one call
  std::byte* const first;
};

TEST_F(SharedMemory, Provided_pages_are_there_before_they_are_written_to) {
  ASSERT_EQ(Provided(), 0U);
  if (!CanBeAsked()) GTEST_SKIP() << "this system provides pages one by one alone";
  ProvidePages({first, pages * page});
  EXPECT_EQ(Provided(), pages);
}

TEST_F(SharedMemory, Bytes_in_the_midst_of_pages_have_those_provided_and_no_others) {
  if (!CanBeAsked()) GTEST_SKIP() << "this system provides pages one by one alone";
  ProvidePages({first + 10 * page + 100, 2 * page});
  EXPECT_EQ(Provided(), 3U);
}

TEST_F(SharedMemory, Provided_pages_hold_what_they_held) {
  first[5 * page] = std::byte{7};
  ProvidePages({first, pages * page});
  EXPECT_EQ(first[5 * page], std::byte{7});
  EXPECT_EQ(first[6 * page], std::byte{0});
}

TEST_F(SharedMemory, No_bytes_and_bytes_that_are_gone_are_nothing_to_it) {
  ProvidePages({});
  std::byte* const gone = static_cast<std::byte*>(
      mmap(nullptr, page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
  munmap(gone, page);
  ProvidePages({gone, page});
  EXPECT_EQ(Provided(), 0U);
}

// As pixels have it.
struct OwnMemory : SharedMemory {
  OwnMemory() : SharedMemory(600, MAP_PRIVATE) {}
};

TEST_F(OwnMemory, Of_a_block_that_is_written_from_its_beginning_only_the_next_pages_are_provided) {
  if (!CanBeAsked()) GTEST_SKIP() << "this system provides pages one by one alone";
  PagesAhead ahead({first, pages * page});
  EXPECT_EQ(Provided(), 0U);
  ahead.Reach(first + 1);
  const std::size_t atOnce = Provided();
  EXPECT_GT(atOnce, 1U);
  EXPECT_LT(atOnce, pages / 2);
  ahead.Reach(first + atOnce * page);
  EXPECT_EQ(Provided(), atOnce);
  ahead.Reach(first + atOnce * page + 1);
  EXPECT_EQ(Provided(), 2 * atOnce);
}

TEST_F(OwnMemory, All_that_is_reached_is_provided_and_nothing_behind_the_block) {
  if (!CanBeAsked()) GTEST_SKIP() << "this system provides pages one by one alone";
  PagesAhead ahead({first, 500 * page});
  ahead.Reach(first + 400 * page);
  EXPECT_GE(Provided(), 400U);
  EXPECT_LE(Provided(), 500U);
  ahead.Reach(first + 500 * page);
  ahead.Reach(first + 500 * page);
  EXPECT_EQ(Provided(), 500U);
}

TEST_F(OwnMemory, Pages_of_small_blocks_are_left_to_the_system) {
  PagesAhead ahead({first, 100 * page});
  ahead.Reach(first + 100 * page);
  EXPECT_EQ(Provided(), 0U);
  PagesAhead().Reach(first);
  EXPECT_EQ(Provided(), 0U);
}

}  // namespace
}  // namespace lumidex
