#pragma once
// The programs that run now, as far as a desktop's background is drawn by one of them.

#include <functional>
#include <string>
#include <vector>

namespace lumidex {

struct RunningProcess {
  int number = 0;
  std::vector<std::string> arguments;  // the program's own name first
};

// Those of this user whose program has that name.
using ProcessList = std::function<std::vector<RunningProcess>(const std::string& program)>;
std::vector<RunningProcess> RunningProcesses(const std::string& program);

}  // namespace lumidex
