#pragma once
// What looks at files have told lately, for all threads: who reads files ahead has looked at them already
// when the program comes to them. Nobody waits here; where another thread is busy nothing is known.

#include <array>
#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "ports/file_system.h"

namespace lumidex {

class RecentLooks {
 public:
  // What was told stays true for that time; for none of it nothing is kept.
  explicit RecentLooks(std::chrono::nanoseconds unnoticed)
      : unnoticed_(unnoticed), sets_(unnoticed.count() == 0 ? 0 : sets) {}

  std::optional<FileFacts> Of(const std::string& path);
  // `begun` is what Changes told before the look.
  void Keep(const std::string& path, const FileFacts& facts, std::uint64_t begun);
  std::uint64_t Changes() const { return changes_; }
  // The program has changed something: whatever was told before counts no more.
  void ForgetAll() { ++changes_; }
  // This file is written to again and again: it is looked at itself each time. For one thread alone.
  void Exclude(const std::string& path);

 private:
  using Clock = std::chrono::steady_clock;
  struct Seen {
    std::string path;
    FileFacts facts;
    Clock::time_point until{};
    std::uint64_t changes = 0;
  };
  // Several times as many as a few milliseconds bring. Each path has some places where it may be, so that one
  // that is still to be asked for is hardly ever pushed out.
  static constexpr std::size_t sets = 256, places = 4;
  // Two threads seldom meet at one set. What the search looks at lies together, since another processor has
  // written it mostly.
  struct alignas(64) Set {
    std::mutex mutex;
    std::array<std::uint32_t, places> marks{};       // the upper bits of the paths' hashes
    std::unique_ptr<std::array<Seen, places>> seen;  // made for the first one: most sets are never used

    // Where it is; `places` for nowhere.
    std::size_t PlaceOf(std::uint32_t mark, const std::string& path) const;
  };

  bool IsExcluded(const std::string& path) const;

  const std::chrono::nanoseconds unnoticed_;
  std::vector<Set> sets_;  // none when nothing is kept
  std::atomic<std::uint64_t> changes_{0};
  std::mutex excluding_;
  std::array<std::string, 4> excluded_;  // written by one thread, read by others under the mutex
  std::size_t nextExcluded_ = 0;
};

}  // namespace lumidex
