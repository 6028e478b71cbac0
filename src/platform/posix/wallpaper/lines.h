#pragma once
// Texts of programs and files, line by line.

#include <string>
#include <string_view>
#include <vector>

namespace lumidex {

// Without their ends; an empty rest behind the last end is no line.
inline std::vector<std::string> Lines(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const auto end = std::min(text.find('\n'), text.size());
    lines.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

}  // namespace lumidex
