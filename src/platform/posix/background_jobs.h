#pragma once
// Work that waits for others, done on a thread of its own. Of each kind only the newest wish is worth doing.

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace lumidex {

class BackgroundJobs {
 public:
  using Job = std::function<void()>;

  BackgroundJobs() = default;
  // Waits for the job that runs; those that have not begun are dropped.
  ~BackgroundJobs();
  BackgroundJobs(const BackgroundJobs&) = delete;
  BackgroundJobs& operator=(const BackgroundJobs&) = delete;

  // Returns at once. A job of the same kind that has not begun yet is dropped; jobs run one after the other.
  void Ask(int kind, Job job);
  // Whether all is done, waiting for that no longer than so.
  bool WaitUntilDone(std::chrono::milliseconds atMost);

 private:
  struct Waiting {
    int kind;
    Job job;
  };
  void Work(const std::stop_token& end);

  std::mutex mutex_;
  std::condition_variable_any changed_;
  std::vector<Waiting> waiting_;
  bool busy_ = false;
  std::jthread thread_;  // begun by the first job
};

}  // namespace lumidex
