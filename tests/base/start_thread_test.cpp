#include "base/start_thread.h"

#include <gtest/gtest.h>

#ifdef __linux__
#include <sched.h>

#include <atomic>

namespace lumidex {
namespace {

bool HasOtherProcessor() {
  cpu_set_t allowed;
  return sched_getaffinity(0, sizeof allowed, &allowed) == 0 && CPU_COUNT(&allowed) > 1;
}

// Work of which nobody sleeps, as when a picture is decoded while the window is made.
TEST(StartThread, begins_on_another_processor_than_its_starter) {
  if (!HasOtherProcessor()) GTEST_SKIP() << "one processor";
  constexpr int rounds = 100;
  int elsewhere = 0;
  for (int i = 0; i < rounds; ++i) {
    std::atomic<int> where{-1};
    const int here = sched_getcpu();
    const auto thread = StartThread([&where] { where = sched_getcpu(); }, Beginning::Elsewhere);
    ASSERT_TRUE(thread);
    while (where < 0) {
    }
    if (where != here) ++elsewhere;
  }
  // The system may have moved either meanwhile.
  EXPECT_GT(elsewhere, rounds / 2);
}

TEST(StartThread, lets_others_go_first) {
  if (sched_getscheduler(0) != SCHED_OTHER) GTEST_SKIP() << "a priority of its own";
  int policy = SCHED_OTHER;
  StartThread([&policy] { policy = sched_getscheduler(0); });
  EXPECT_EQ(policy, SCHED_BATCH);
  EXPECT_EQ(sched_getscheduler(0), SCHED_OTHER);
}

TEST(StartThread, ends_the_thread_by_its_stop_token) {
  std::atomic<bool> hasEnded = false;
  {
    const auto thread = StartThread([&hasEnded](const std::stop_token& end) {
      while (!end.stop_requested()) std::this_thread::yield();
      hasEnded = true;
    });
    ASSERT_TRUE(thread);
  }
  EXPECT_TRUE(hasEnded);
}

TEST(StartThread, leaves_the_thread_every_processor_afterwards) {
  cpu_set_t allowed, seen;
  ASSERT_EQ(sched_getaffinity(0, sizeof allowed, &allowed), 0);
  std::atomic<bool> mayLook = false;
  {
    const auto look = [&] {
      mayLook.wait(false);
      sched_getaffinity(0, sizeof seen, &seen);
    };
    const auto thread = StartThread(look, Beginning::Elsewhere);
    ASSERT_TRUE(thread);
    mayLook = true;
    mayLook.notify_all();
  }
  EXPECT_TRUE(CPU_EQUAL(&allowed, &seen));
}

}  // namespace
}  // namespace lumidex
#endif
