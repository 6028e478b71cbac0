// lumidex-scenario [--qt] FILE...: runs scenarios against the program, without windows or in the real ones;
// the last line says "N passed, N failed". docs/scenarios.md tells how they are written.

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "scenario/execution.h"

namespace {

using lumidex::scenario::Execution;
using lumidex::scenario::Failure;
using lumidex::scenario::FrontEnd;
using lumidex::scenario::MakeWindows;
using lumidex::scenario::NoWindows;
using lumidex::scenario::ReadScript;
using lumidex::scenario::Scenario;

struct Counts {
  int passed = 0;
  int failed = 0;
};

void Report(const std::string& file, const Failure& failure, const std::string& scenario) {
  std::printf("%s:%d: %s\n", file.c_str(), failure.line, failure.text.c_str());
  if (!scenario.empty()) std::printf("  in the scenario \"%s\"\n", scenario.c_str());
}

void RunFile(const std::string& file, FrontEnd& frontEnd, Counts& counts) {
  std::ifstream stream(file, std::ios::binary);
  std::ostringstream text;
  text << stream.rdbuf();
  if (!stream) {
    std::printf("%s: the file can't be read\n", file.c_str());
    ++counts.failed;
    return;
  }
  try {
    const auto script = ReadScript(file, text.str());
    for (const Scenario& scenario : script.scenarios) {
      try {
        Execution(scenario, frontEnd, std::filesystem::path(file).parent_path().string()).Run();
        ++counts.passed;
      } catch (const Failure& failure) {
        Report(file, failure, scenario.name);
        ++counts.failed;
      }
    }
  } catch (const Failure& failure) {
    Report(file, failure, "");
    ++counts.failed;
  }
}

}  // namespace

int main(int argc, char** argv) {
  const bool inWindows = argc > 1 && std::strcmp(argv[1], "--qt") == 0;
  const int first = inWindows ? 2 : 1;
  if (argc <= first) {
    std::fputs("usage: lumidex-scenario [--qt] FILE...\n", stderr);
    return 2;
  }
  NoWindows none;
  // The front end takes no options of its own.
  int count = 1;
  const std::unique_ptr<FrontEnd> windows = inWindows ? MakeWindows(count, argv) : nullptr;
  if (inWindows && !windows) {
    std::fputs("lumidex-scenario: built without windows\n", stderr);
    return 2;
  }
  FrontEnd& frontEnd = windows ? *windows : none;
  Counts counts;
  for (int i = first; i < argc; ++i) RunFile(argv[i], frontEnd, counts);
  std::printf("%d passed, %d failed\n", counts.passed, counts.failed);
  return counts.failed == 0 ? 0 : 1;
}
