#pragma once
// Running a small program and waiting for what it says.

#include <optional>
#include <string>
#include <vector>

namespace lumidex {

struct ProgramAnswer {
  int exitCode = 0;
  std::string output;  // what it wrote to its standard output
};

// Runs `arguments[0]` without a shell between, its standard input empty, its error output dropped. Nothing
// when it can't be started, when it takes longer than the limit (it is ended then), or when it ends by a
// signal. For any thread that may wait.
std::optional<ProgramAnswer> RunProgram(const std::vector<std::string>& arguments,
                                        int millisecondsAtMost = 3000);

}  // namespace lumidex
