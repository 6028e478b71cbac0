#include "platform/posix/recent_looks.h"

#include <algorithm>
#include <functional>

namespace lumidex {
namespace {

struct Hash {
  explicit Hash(const std::string& path) : bits(std::hash<std::string>()(path)) {}
  std::uint32_t Mark() const { return static_cast<std::uint32_t>(bits >> 32); }

  std::uint64_t bits;
};

}  // namespace

std::size_t RecentLooks::Set::PlaceOf(std::uint32_t mark, const std::string& path) const {
  for (std::size_t place = 0; seen && place < places; ++place) {
    if (marks[place] == mark && (*seen)[place].path == path) return place;
  }
  return places;
}

std::optional<FileFacts> RecentLooks::Of(const std::string& path) {
  if (sets_.empty()) return {};
  const Hash hash(path);
  Set& set = sets_[hash.bits % sets];
  const std::unique_lock lock(set.mutex, std::try_to_lock);
  if (!lock) return {};
  const std::size_t place = set.PlaceOf(hash.Mark(), path);
  if (place == places) return {};
  const Seen& seen = (*set.seen)[place];
  if (seen.changes != changes_ || Clock::now() >= seen.until) return {};
  return seen.facts;
}

void RecentLooks::Keep(const std::string& path, const FileFacts& facts, std::uint64_t begun) {
  if (sets_.empty()) return;
  {
    const std::scoped_lock lock(excluding_);
    if (IsExcluded(path)) return;
  }
  const Hash hash(path);
  Set& set = sets_[hash.bits % sets];
  const std::unique_lock lock(set.mutex, std::try_to_lock);
  if (!lock) return;
  if (!set.seen) set.seen = std::make_unique<std::array<Seen, places>>();
  std::size_t place = set.PlaceOf(hash.Mark(), path);
  if (place == places) {
    const auto oldest = std::ranges::min_element(*set.seen, {}, &Seen::until);
    place = static_cast<std::size_t>(oldest - set.seen->begin());
  }
  set.marks[place] = hash.Mark();
  Seen& seen = (*set.seen)[place];
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
  const std::scoped_lock lock(excluding_);
  excluded_[nextExcluded_++ % excluded_.size()] = path;
  ForgetAll();
}

}  // namespace lumidex
