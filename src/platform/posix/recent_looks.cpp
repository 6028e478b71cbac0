#include "platform/posix/recent_looks.h"

#include <algorithm>
#include <functional>
#include <span>

namespace lumidex {

RecentLooks::Seen& RecentLooks::PlaceOf(std::size_t hash, const std::string& path) {
  const std::span set(&seen_[hash % sets * places], places);
  const auto found =
      std::ranges::find_if(set, [&](const Seen& seen) { return seen.hash == hash && seen.path == path; });
  return found != set.end() ? *found : *std::ranges::min_element(set, {}, &Seen::until);
}

std::optional<FileFacts> RecentLooks::Of(const std::string& path) {
  const std::unique_lock lock(mutex_, std::try_to_lock);
  if (!lock || seen_.empty()) return {};
  const std::size_t hash = std::hash<std::string>()(path);
  const Seen& seen = PlaceOf(hash, path);
  if (seen.hash != hash || seen.path != path || seen.changes != changes_ || Clock::now() >= seen.until)
    return {};
  return seen.facts;
}

void RecentLooks::Keep(const std::string& path, const FileFacts& facts, std::uint64_t begun) {
  if (unnoticed_.count() == 0) return;
  const std::unique_lock lock(mutex_, std::try_to_lock);
  if (!lock || IsExcluded(path)) return;
  if (seen_.empty()) seen_.resize(sets * places);
  const std::size_t hash = std::hash<std::string>()(path);
  Seen& seen = PlaceOf(hash, path);
  seen.hash = hash;
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
