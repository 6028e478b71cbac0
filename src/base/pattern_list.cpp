#include "base/pattern_list.h"

#include <algorithm>
#include <cstring>

#include "base/text.h"

namespace lumidex {
namespace {

constexpr std::uint64_t EachByte(std::uint64_t value) {
  return value * 0x0101010101010101U;
}

// The last eight bytes; of a shorter text nothing stands before its first.
std::uint64_t LastBytes(std::string_view text) {
  std::uint64_t word = 0;
  const std::size_t count = std::min(text.size(), sizeof word);
  std::memcpy(reinterpret_cast<char*>(&word) + (sizeof word - count), text.data() + text.size() - count,
              count);
  return word;
}

// Capital letters of ASCII as small ones, all eight at once: the top bit of each sum below tells whether the
// byte lies behind a letter.
std::uint64_t Folded(std::uint64_t word) {
  const std::uint64_t low = word & EachByte(0x7F);
  const std::uint64_t fromA = low + EachByte(0x80 - 'A'), behindZ = low + EachByte(0x7F - 'Z');
  const std::uint64_t capitals = (fromA & ~behindZ & ~word) & EachByte(0x80);
  return word | (capitals >> 2);
}

bool IsAscii(std::string_view text) {
  std::uint64_t all = 0;
  for (; text.size() >= sizeof all; text.remove_prefix(sizeof all)) {
    std::uint64_t word = 0;
    std::memcpy(&word, text.data(), sizeof word);
    all |= word;
  }
  return ((all | LastBytes(text)) & EachByte(0x80)) == 0;
}

// Classic wildcard match on folded texts; goes back to the last star only, so it is linear for each star.
bool MatchesFolded(std::string_view pattern, std::string_view name) {
  std::size_t p = 0, n = 0, star = std::string_view::npos, mark = 0;
  while (n < name.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      mark = n;
    } else if (p < pattern.size() && pattern[p] == '?') {
      ++p;
      n += Left(name.substr(n), 1).size();
    } else if (p < pattern.size() && pattern[p] == name[n]) {
      ++p;
      ++n;
    } else if (star != std::string_view::npos) {
      p = star + 1;
      n = ++mark;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == '*') ++p;
  return p == pattern.size();
}

}  // namespace

PatternList::PatternList(std::string_view patterns) {
  while (!patterns.empty()) {
    const auto end = std::min(patterns.find(';'), patterns.size());
    std::string folded = LCase(Trim(patterns.substr(0, end)));
    patterns.remove_prefix(std::min(end + 1, patterns.size()));
    if (folded.empty()) continue;
    const std::string_view ending = std::string_view(folded).substr(1);
    const bool isEnding =
        folded[0] == '*' && !ending.empty() && ending.find_first_of("*?") == std::string_view::npos;
    if (isEnding && ending.size() <= sizeof(Ending::folded) && IsAscii(ending))
      endings_.push_back({LastBytes(ending), LastBytes(std::string(ending.size(), '\xFF'))});
    folded_.push_back(std::move(folded));
  }
}

bool PatternList::Matches(std::string_view name) const {
  const std::uint64_t last = Folded(LastBytes(name));
  for (const Ending& ending : endings_) {
    if ((last & ending.mask) == ending.folded) return true;
  }
  // Of other characters some are folded to letters of ASCII.
  if (endings_.size() == folded_.size() && IsAscii(name)) return false;
  const std::string folded = LCase(name);
  return std::ranges::any_of(folded_,
                             [&](const std::string& pattern) { return MatchesFolded(pattern, folded); });
}

}  // namespace lumidex
