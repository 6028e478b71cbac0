#pragma once
// Patterns of file names, as a list box of files takes them.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace lumidex {

// True when `name` matches one of the semicolon-separated patterns (* and ?), without regard to case.
// An empty list of patterns matches nothing.
class PatternList {
 public:
  PatternList() = default;
  explicit PatternList(std::string_view patterns);
  bool Matches(std::string_view name) const;

 private:
  // "*.ext", which is what nearly all patterns are: the last bytes decide, held in one word each.
  struct Ending {
    std::uint64_t folded;
    std::uint64_t mask;  // the bytes that count
  };
  std::vector<Ending> endings_;
  std::vector<std::string> folded_;  // all patterns
};

}  // namespace lumidex
