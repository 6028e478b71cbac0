#pragma once
// The calls that the program made to its platform, in order, one readable line each. Questions (is there a
// file, what time is it) are left out; what changes something or shows something is in.

#include <string>
#include <vector>

namespace lumidex {

class CallLog {
 public:
  void Add(std::string line) { lines_.push_back(std::move(line)); }
  void Clear() { lines_.clear(); }
  const std::vector<std::string>& Lines() const { return lines_; }

 private:
  std::vector<std::string> lines_;
};

}  // namespace lumidex
