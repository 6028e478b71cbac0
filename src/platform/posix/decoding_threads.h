#pragma once
// The decoding service of a desktop: works on threads of its own, which are begun when there is something to
// do for them. Where none can be had, what is to be shown is decoded at once and nothing is read ahead.

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <thread>

#include "ports/decoding.h"

namespace lumidex {

class DecodingThreads final : public DecodingService {
 public:
  struct Options {
    unsigned threads = 0;  // at most; 0 for one a processor, but no more than four
    // Neighbours are read once nothing was asked for during this time: long enough for what is shown now to
    // be painted, short enough to be done before the next step.
    std::chrono::milliseconds quiet{40};
  };
  explicit DecodingThreads(const FileSystem& files) : DecodingThreads(files, Options()) {}
  DecodingThreads(const FileSystem& files, Options options);
  ~DecodingThreads() override;

  // Returns when there is nothing left to do. For those who can do nothing useful meanwhile.
  void WaitUntilDone();

 private:
  using Clock = std::chrono::steady_clock;

  void Woken(bool isToShow) override;
  void GiveWay() override { std::this_thread::yield(); }
  void StartOne();
  void Work(const std::stop_token& end);

  const Options options_;
  std::mutex mutex_;
  std::condition_variable_any changed_;
  std::atomic<Clock::time_point> asked_{};  // when something was asked for last
  // A thread rests, and then looks for wakes that it has not seen; who wakes counts, and then looks for
  // resting threads. So whoever is asked often need not be held up while all are busy.
  std::atomic<std::uint64_t> wakes_{0};
  std::atomic<unsigned> resting_{0};  // threads that have found nothing to do since the last wake
  std::atomic<bool> areAllStarted_{false};
  std::uint64_t rounds_ = 0;  // of calling all that rest
  std::vector<std::jthread> threads_;
};

}  // namespace lumidex
