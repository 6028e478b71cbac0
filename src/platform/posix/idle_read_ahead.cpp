#include "platform/posix/idle_read_ahead.h"

namespace lumidex {
namespace {

// How often in a row work is put off because the current picture is not decoded yet. After that it may be one
// that nobody sees, in a window that is covered or hidden.
constexpr int mostDelays = 50;

}  // namespace

IdleReadAhead::~IdleReadAhead() {
  StopRunning();
  thread_.request_stop();
}

void IdleReadAhead::Woken() {
  const bool hasWork = HasWork();
  {
    const std::scoped_lock lock(mutex_);
    if (!thread_.joinable()) {
      if (!hasWork) return;
      thread_ = std::jthread([this](const std::stop_token& end) { Work(end); });
    }
    woken_ = true;
    busy_ = busy_ || hasWork;
  }
  changed_.notify_all();
}

void IdleReadAhead::WaitUntilDone() {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return !busy_; });
}

bool IdleReadAhead::WaitForQuiet(std::unique_lock<std::mutex>& lock, const std::stop_token& end) {
  do {
    woken_ = false;
  } while (changed_.wait_for(lock, end, quiet_, [this] { return woken_; }));
  return !end.stop_requested();
}

void IdleReadAhead::Work(const std::stop_token& end) {
  std::unique_lock lock(mutex_);
  while (true) {
    for (int delays = 0; HasWork();) {
      if (!WaitForQuiet(lock, end)) return;
      if (CurrentIsPending() && delays++ < mostDelays) continue;
      lock.unlock();
      RunNext();
      lock.lock();
    }
    busy_ = woken_;
    changed_.notify_all();
    if (!changed_.wait(lock, end, [this] { return woken_; })) return;
    woken_ = false;
  }
}

}  // namespace lumidex
