// lumidex-scenario FILE...: runs scenarios against the program without windows; the last line says
// "N passed, N failed". docs/scenarios.md tells how they are written.

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "scenario/execution.h"

namespace {

using lumidex::scenario::Execution;
using lumidex::scenario::Failure;
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

void RunFile(const std::string& file, Counts& counts) {
  std::ifstream stream(file, std::ios::binary);
  std::ostringstream text;
  text << stream.rdbuf();
  if (!stream) {
    std::printf("%s: the file can't be read\n", file.c_str());
    ++counts.failed;
    return;
  }
  NoWindows frontEnd;
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
  if (argc < 2) {
    std::fputs("usage: lumidex-scenario FILE...\n", stderr);
    return 2;
  }
  Counts counts;
  for (int i = 1; i < argc; ++i) RunFile(argv[i], counts);
  std::printf("%d passed, %d failed\n", counts.passed, counts.failed);
  return counts.failed == 0 ? 0 : 1;
}
