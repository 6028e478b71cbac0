#include <gmock/gmock.h>

#include "platform/posix/background_jobs.h"
#include "platform/posix/run_program.h"

namespace lumidex {
namespace {

TEST(RunProgram, Answers_what_the_program_says_and_how_it_ends) {
  const auto answer = RunProgram({"printf", "%s|", "a b", "$HOME", "*"});
  ASSERT_TRUE(answer);
  EXPECT_EQ(answer->output, "a b|$HOME|*|");
  EXPECT_EQ(answer->exitCode, 0);
  EXPECT_EQ(RunProgram({"sh", "-c", "exit 3"})->exitCode, 3);
}

TEST(RunProgram, A_program_that_is_not_there_gives_nothing) {
  EXPECT_FALSE(RunProgram({"lumidex-no-such-program"}));
  EXPECT_FALSE(RunProgram({}));
  EXPECT_FALSE(RunProgram({""}));
}

TEST(RunProgram, A_program_that_takes_too_long_is_ended) {
  EXPECT_FALSE(RunProgram({"sleep", "60"}, 30));
}

TEST(RunProgram, A_program_that_ends_by_a_signal_has_not_answered) {
  EXPECT_FALSE(RunProgram({"sh", "-c", "kill -9 $$"}));
}

TEST(RunProgram, A_talkative_program_is_read_to_its_end) {
  const auto answer = RunProgram({"sh", "-c", "head -c 3000000 /dev/zero; exit 7"});
  ASSERT_TRUE(answer);
  EXPECT_EQ(answer->exitCode, 7);
  EXPECT_LE(answer->output.size(), std::size_t{2} << 20);
}

// A job that waits until the test lets it go on.
class Gate {
 public:
  void Open() {
    const std::lock_guard lock(mutex_);
    open_ = true;
    changed_.notify_all();
  }
  void Pass() {
    std::unique_lock lock(mutex_);
    reached_ = true;
    changed_.notify_all();
    changed_.wait(lock, [this] { return open_; });
  }
  void AwaitReached() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return reached_; });
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  bool open_ = false, reached_ = false;
};

constexpr std::chrono::seconds longest{60};

TEST(BackgroundJobs, Of_each_kind_only_the_newest_wish_is_done) {
  std::vector<int> done;
  Gate gate;
  BackgroundJobs jobs;
  jobs.Ask(0, [&] { gate.Pass(); });
  gate.AwaitReached();
  jobs.Ask(1, [&] { done.push_back(1); });
  jobs.Ask(2, [&] { done.push_back(2); });
  jobs.Ask(1, [&] { done.push_back(3); });
  EXPECT_FALSE(jobs.WaitUntilDone(std::chrono::milliseconds(0)));
  gate.Open();
  EXPECT_TRUE(jobs.WaitUntilDone(longest));
  EXPECT_THAT(done, testing::ElementsAre(2, 3));
}

TEST(BackgroundJobs, Asking_waits_for_nobody) {
  Gate gate;
  BackgroundJobs jobs;
  jobs.Ask(0, [&] { gate.Pass(); });
  bool done = false;
  jobs.Ask(0, [&] { done = true; });
  gate.Open();
  EXPECT_TRUE(jobs.WaitUntilDone(longest));
  EXPECT_TRUE(done);
}

TEST(BackgroundJobs, Nothing_asked_is_all_done) {
  BackgroundJobs jobs;
  EXPECT_TRUE(jobs.WaitUntilDone(std::chrono::milliseconds(0)));
}

}  // namespace
}  // namespace lumidex
