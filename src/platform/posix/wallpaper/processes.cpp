#include "platform/posix/wallpaper/processes.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

namespace lumidex {
namespace {

std::vector<std::string> Arguments(const std::string& folder) {
  std::ifstream file(folder + "/cmdline", std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  std::vector<std::string> arguments;
  for (std::size_t begin = 0; begin < bytes.size();) {
    const auto end = std::min(bytes.find('\0', begin), bytes.size());
    arguments.push_back(bytes.substr(begin, end - begin));
    begin = end + 1;
  }
  return arguments;
}

}  // namespace

std::vector<RunningProcess> RunningProcesses(const std::string& program) {
  std::vector<RunningProcess> found;
  DIR* directory = opendir("/proc");
  if (!directory) return found;
  while (const dirent* entry = readdir(directory)) {
    const int number = std::atoi(entry->d_name);
    if (number <= 0) continue;
    const std::string folder = std::string("/proc/") + entry->d_name;
    struct stat status {};
    if (stat(folder.c_str(), &status) != 0 || status.st_uid != geteuid()) continue;
    auto arguments = Arguments(folder);
    if (arguments.empty()) continue;
    const std::string& name = arguments.front();
    if (name.substr(name.rfind('/') + 1) == program) found.push_back({number, std::move(arguments)});
  }
  closedir(directory);
  return found;
}

}  // namespace lumidex
