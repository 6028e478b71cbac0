#include "platform/posix/memory.h"

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
  ~SharedMemory() override { munmap(first, pages * page); }
  std::size_t Provided() const {
    std::vector<unsigned char> states(pages);
    if (mincore(first, pages * page, states.data()) != 0) return 0;
    return static_cast<std::size_t>(
        std::ranges::count_if(states, [](unsigned char state) { return state & 1; }));
  }
  bool CanBeAsked() const { return madvise(first, page, MADV_POPULATE_WRITE) == 0; }

  const std::size_t page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  const std::size_t pages = 200;  // more than are provided by one call
  std::byte* const first = static_cast<std::byte*>(
      mmap(nullptr, pages* page, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
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
  EXPECT_EQ(Provided(), 1 + 3U);
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

}  // namespace
}  // namespace lumidex
