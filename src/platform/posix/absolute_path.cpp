#include "platform/posix/absolute_path.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cstdlib>

namespace lumidex {
namespace {

bool IsLink(const std::string& path) {
  struct stat status {};
  return lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

// `directory` is absolute and has no separator at its end; empty is the root.
void GoUp(std::string& directory) {
  char real[PATH_MAX];
  if (IsLink(directory) && realpath(directory.c_str(), real)) directory = real;
  directory.erase(std::min(directory.rfind('/'), directory.size()));
}

}  // namespace

std::string AbsolutePath(const std::string& path, const std::string& currentDirectory) {
  const std::string whole = path.starts_with('/') ? path : currentDirectory + "/" + path;
  std::string absolute;
  for (std::size_t begin = 0; begin < whole.size();) {
    const std::size_t end = std::min(whole.find('/', begin), whole.size());
    const std::string last = whole.substr(begin, end - begin);
    begin = end + 1;
    if (last == "..") {
      GoUp(absolute);
    } else if (!last.empty() && last != ".") {
      absolute += "/" + last;
    }
  }
  return absolute.empty() ? "/" : absolute;
}

std::string CurrentDirectoryName(const Environment& environment) {
  const std::string name = environment("PWD");
  struct stat named {
  }, real{};
  if (name.starts_with('/') && stat(name.c_str(), &named) == 0 && stat(".", &real) == 0 &&
      named.st_dev == real.st_dev && named.st_ino == real.st_ino) {
    return name;
  }
  char current[PATH_MAX];
  return getcwd(current, sizeof current) ? current : "/";
}

}  // namespace lumidex
