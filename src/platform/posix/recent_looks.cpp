#include "platform/posix/recent_looks.h"

#include <algorithm>
#include <functional>

namespace lumidex {

RecentLooks::Seen& RecentLooks::PlaceOf(const std::string& path) {
  Seen* const pair = &seen_[2 * (std::hash<std::string>()(path) % pairs)];
  if (pair[0].path == path) return pair[0];
  return pair[1].path == path || pair[1].until < pair[0].until ? pair[1] : pair[0];
}

std::optional<FileFacts> RecentLooks::Of(const std::string& path) {
  const std::unique_lock lock(mutex_, std::try_to_lock);
  if (!lock || seen_.empty()) return {};
  const Seen& seen = PlaceOf(path);
  if (seen.path != path || seen.changes != changes_ || Clock::now() >= seen.until) return {};
  return seen.facts;
}

void RecentLooks::Keep(const std::string& path, const FileFacts& facts, std::uint64_t begun) {
  if (unnoticed_.count() == 0) return;
  const std::unique_lock lock(mutex_, std::try_to_lock);
  if (!lock || IsExcluded(path)) return;
  if (seen_.empty()) seen_.resize(2 * pairs);
  Seen& seen = PlaceOf(path);
  seen.path = path;
  seen.facts = facts;
  seen.until = Clock::now() + unnoticed_;
  seen.changes = begun;
}

bool RecentLooks::IsExcluded(const std::string& path) const {
  return std::ranges::find(excluded_, path) != excluded_.end();
}

void RecentLooks::Exclude(const std::string& path) {
  if (IsExcluded(path)) return;
  const std::scoped_lock lock(mutex_);
  excluded_[nextExcluded_++ % excluded_.size()] = path;
  ForgetAll();
}

}  // namespace lumidex
