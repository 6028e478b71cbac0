#pragma once
// Reads ahead on a thread of its own while the program idles.

#include <chrono>
#include <condition_variable>
#include <thread>

#include "ports/read_ahead.h"

namespace lumidex {

class IdleReadAhead final : public ReadAhead {
 public:
  // Work begins once nothing was asked for during `quiet`: long enough for what is shown now to be painted,
  // short enough to be done before the next step.
  explicit IdleReadAhead(const FileSystem& files,
                         std::chrono::milliseconds quiet = std::chrono::milliseconds(40))
      : ReadAhead(files), quiet_(quiet) {}
  ~IdleReadAhead() override;

  // Returns when there is nothing left to do. For those who can do nothing useful meanwhile.
  void WaitUntilDone();

 private:
  using Clock = std::chrono::steady_clock;

  void Woken() override;
  void Work(const std::stop_token& end);
  // Waits until the program has been quiet for long enough; false at the end of the thread's life.
  bool WaitForQuiet(std::unique_lock<std::mutex>& lock, const std::stop_token& end);

  const std::chrono::milliseconds quiet_;
  std::mutex mutex_;
  std::condition_variable_any changed_;
  bool woken_ = false;  // since the thread looked last
  bool busy_ = false;
  std::jthread thread_;  // begun by the first wish: a program with one picture needs none
};

}  // namespace lumidex
