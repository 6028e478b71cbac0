#include "platform/headless/memory_paths.h"

#include "base/text.h"

namespace lumidex {
namespace {

bool HasDrive(const std::string& path) {
  return path.size() >= 2 && path[1] == ':';
}

void Walk(PathParts& parts, const std::string& rest, char separator) {
  std::size_t start = 0;
  while (start <= rest.size()) {
    auto end = rest.find(separator, start);
    if (end == std::string::npos) end = rest.size();
    const std::string name = rest.substr(start, end - start);
    if (name == "..") {
      if (!parts.names.empty()) parts.names.pop_back();
    } else if (!name.empty() && name != ".") {
      parts.names.push_back(name);
    }
    start = end + 1;
  }
}

}  // namespace

std::string PathParts::Text(char separator) const {
  std::string text = root;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i > 0) text += separator;
    text += names[i];
  }
  return text;
}

PathParts TakeApart(const std::string& path, const std::string& current, char separator) {
  PathParts parts;
  if (separator == '/') {
    parts.root = std::string(1, '/');
    if (!path.starts_with('/')) Walk(parts, current, separator);
    Walk(parts, path, separator);
    return parts;
  }
  if (HasDrive(path)) {
    parts.root = UCase(path.substr(0, 2)) + separator;
    const bool isBareCurrentDrive = path.size() == 2 && current.starts_with(parts.root);
    if (isBareCurrentDrive) Walk(parts, current.substr(2), separator);
    Walk(parts, path.substr(2), separator);
    return parts;
  }
  parts.root = current.substr(0, 3);
  if (!path.starts_with(separator)) Walk(parts, current.substr(2), separator);
  Walk(parts, path, separator);
  return parts;
}

}  // namespace lumidex
