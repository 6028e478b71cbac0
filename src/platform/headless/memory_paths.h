#pragma once
// Paths of the two worlds, drive letters with '\' and one tree with '/', as plain text.

#include <string>
#include <vector>

namespace lumidex {

struct PathParts {
  std::string root;  // "C:\" or "/"
  std::vector<std::string> names;

  std::string Text(char separator) const;
  // Those of the directory in which it stands; for a path below the root.
  PathParts Above() const { return {root, {names.begin(), names.end() - 1}}; }
};

// Takes a path apart after making it absolute: "." and ".." and doubled separators are gone. A path without
// a root starts from `current`, one that begins with '\' from its drive, and a bare "D:" is that drive's
// root.
PathParts TakeApart(const std::string& path, const std::string& current, char separator);

}  // namespace lumidex
