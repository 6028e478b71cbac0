#include "platform/posix/background_jobs.h"

namespace lumidex {

BackgroundJobs::~BackgroundJobs() {
  thread_.request_stop();
  if (thread_.joinable()) thread_.join();
}

void BackgroundJobs::Ask(int kind, Job job) {
  const std::lock_guard lock(mutex_);
  std::erase_if(waiting_, [kind](const Waiting& each) { return each.kind == kind; });
  waiting_.push_back({kind, std::move(job)});
  if (!thread_.joinable()) thread_ = std::jthread([this](const std::stop_token& end) { Work(end); });
  changed_.notify_all();
}

bool BackgroundJobs::WaitUntilDone(std::chrono::milliseconds atMost) {
  std::unique_lock lock(mutex_);
  return changed_.wait_for(lock, atMost, [this] { return waiting_.empty() && !busy_; });
}

void BackgroundJobs::Work(const std::stop_token& end) {
  std::unique_lock lock(mutex_);
  while (changed_.wait(lock, end, [this] { return !waiting_.empty(); }) && !end.stop_requested()) {
    const Job job = std::move(waiting_.front().job);
    waiting_.erase(waiting_.begin());
    busy_ = true;
    lock.unlock();
    job();
    lock.lock();
    busy_ = false;
    changed_.notify_all();
  }
}

}  // namespace lumidex
