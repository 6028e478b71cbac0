#include "platform/posix/posix_special_folders.h"

#include <sys/stat.h>

#include <fstream>

namespace lumidex {
namespace {

bool IsFolder(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

// The value of `KEY="$HOME/x"` or `KEY="/x"`, with the shell's backslashes undone; empty for another line.
std::string ValueIn(const std::string& line, const std::string& key, const std::string& home) {
  const std::string start = key + "=\"";
  if (!line.starts_with(start)) return {};
  std::string value;
  for (std::size_t i = start.size(); i < line.size() && line[i] != '"'; ++i) {
    if (line[i] == '\\' && i + 1 < line.size()) ++i;
    value += line[i];
  }
  constexpr std::string_view homeMark = "$HOME/";
  if (value.starts_with(homeMark)) return home + "/" + value.substr(homeMark.size());
  return value.starts_with('/') ? value : std::string();
}

}  // namespace

std::string PosixSpecialFolders::Folder(const std::string& key, const std::string& usualName) const {
  const std::string home = HomeFolder(environment_);
  std::ifstream file(ConfigHome(environment_) + "/user-dirs.dirs", std::ios::binary);
  for (std::string line; std::getline(file, line);) {
    std::string value = ValueIn(line, key, home);
    while (value.size() > 1 && value.ends_with('/')) value.pop_back();
    if (!value.empty() && IsFolder(value)) return value;
  }
  const std::string usual = home + "/" + usualName;
  return IsFolder(usual) ? usual : home;
}

}  // namespace lumidex
