#pragma once
// Paths in one piece of memory: a list of thousands is copied and let go in no time.

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace lumidex {

class PathList {
 public:
  PathList() = default;
  PathList(std::initializer_list<std::string_view> paths) {
    for (const std::string_view path : paths) Add(path);
  }
  PathList(const std::vector<std::string>& paths) {
    for (const std::string& path : paths) Add(path);
  }

  void Add(std::string_view path) {
    characters_ += path;
    ends_.push_back(characters_.size());
  }
  std::size_t Count() const { return ends_.size(); }
  // Until the list changes.
  std::string_view operator[](std::size_t place) const {
    const std::size_t start = place == 0 ? 0 : ends_[place - 1];
    return std::string_view(characters_).substr(start, ends_[place] - start);
  }

 private:
  std::string characters_;  // of all, one behind the other
  std::vector<std::size_t> ends_;
};

}  // namespace lumidex
