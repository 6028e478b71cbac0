#include "platform/posix/mounts.h"

#include <algorithm>
#include <fstream>
#include <sstream>

namespace lumidex {
namespace {

bool IsOctal(char character) {
  return character >= '0' && character <= '7';
}

std::string WithoutEscapes(std::string_view field) {
  std::string text;
  for (std::size_t i = 0; i < field.size(); ++i) {
    const bool escaped = field[i] == '\\' && i + 3 < field.size() && IsOctal(field[i + 1]) &&
                         IsOctal(field[i + 2]) && IsOctal(field[i + 3]);
    if (escaped) {
      const int value = (field[i + 1] - '0') * 64 + (field[i + 2] - '0') * 8 + (field[i + 3] - '0');
      text += static_cast<char>(value);
      i += 3;
    } else {
      text += field[i];
    }
  }
  return text;
}

bool IsBelow(const std::string& path, std::string_view folder) {
  return path.size() > folder.size() && path.starts_with(folder) && path[folder.size()] == '/';
}

}  // namespace

std::vector<std::string> RemovablePlaces(std::string_view mountTable) {
  std::vector<std::string> places;
  while (!mountTable.empty()) {
    const auto end = std::min(mountTable.find('\n'), mountTable.size());
    const std::string_view line = mountTable.substr(0, end);
    mountTable.remove_prefix(std::min(end + 1, mountTable.size()));
    const auto start = line.find(' ');
    if (start == std::string_view::npos) continue;
    const auto stop = std::min(line.find(' ', start + 1), line.size());
    std::string place = WithoutEscapes(line.substr(start + 1, stop - start - 1));
    if (IsBelow(place, "/media") || IsBelow(place, "/mnt") || place == "/mnt" ||
        IsBelow(place, "/run/media")) {
      places.push_back(std::move(place));
    }
  }
  std::ranges::sort(places);
  const auto repeated = std::ranges::unique(places);
  places.erase(repeated.begin(), repeated.end());
  return places;
}

std::vector<std::string> RemovablePlaces() {
  std::ifstream stream("/proc/self/mounts", std::ios::binary);
  std::ostringstream table;
  table << stream.rdbuf();
  return RemovablePlaces(table.str());
}

}  // namespace lumidex
