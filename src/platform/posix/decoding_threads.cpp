#include "platform/posix/decoding_threads.h"

#include <algorithm>

#include "base/start_thread.h"

namespace lumidex {
namespace {

unsigned ThreadCount(unsigned asked) {
  constexpr unsigned most = 4;
  return asked > 0 ? asked : std::clamp(std::thread::hardware_concurrency(), 1U, most);
}

}  // namespace

DecodingThreads::DecodingThreads(const FileSystem& files, Options options)
    : DecodingService(files), options_{ThreadCount(options.threads), options.quiet} {}

DecodingThreads::~DecodingThreads() {
  StopAll();
  for (std::jthread& thread : threads_) thread.request_stop();
}

void DecodingThreads::Woken(bool isToShow) {
  asked_ = Clock::now();
  ++wakes_;
  if (areAllStarted_ && resting_ == 0) return;
  const bool hasWork = isToShow || HasWork();
  bool hasThread = false;
  {
    const std::scoped_lock lock(mutex_);
    if (hasWork && resting_ == 0) StartOne();
    resting_ = 0;
    ++rounds_;
    ++wakes_;
    hasThread = !threads_.empty();
  }
  changed_.notify_all();
  while (!hasThread && isToShow && RunNextShowing()) {
  }
}

void DecodingThreads::StartOne() {
  if (threads_.size() >= options_.threads) return;
  auto thread = StartThread([this](const std::stop_token& end) { Work(end); },
                            threads_.empty() ? Beginning::Elsewhere : Beginning::Anywhere);
  if (thread) threads_.push_back(std::move(*thread));
  areAllStarted_ = threads_.size() >= options_.threads;
}

void DecodingThreads::Work(const std::stop_token& end) {
  std::unique_lock lock(mutex_);
  while (!end.stop_requested()) {
    const std::uint64_t seen = wakes_;
    const Clock::time_point quiet = asked_.load() + options_.quiet;
    lock.unlock();
    const bool wasBusy = RunNext(Clock::now() >= quiet);
    const bool waitsForQuiet = !wasBusy && HasWorkForIdleness();
    lock.lock();
    // What has just been made is about to be painted.
    if (wasBusy) asked_ = Clock::now();
    if (wasBusy) continue;
    ++resting_;
    const std::uint64_t round = rounds_;
    const auto isWoken = [&] { return wakes_ != seen; };
    if (!isWoken()) changed_.notify_all();
    if (waitsForQuiet) {
      changed_.wait_until(lock, end, quiet, isWoken);
    } else {
      changed_.wait(lock, end, isWoken);
    }
    if (rounds_ == round) --resting_;
  }
}

void DecodingThreads::WaitUntilDone() {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return resting_ == threads_.size() && !HasWorkForIdleness(); });
}

}  // namespace lumidex
