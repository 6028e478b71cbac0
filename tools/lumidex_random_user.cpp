// lumidex-random-user [--seeds FIRST-LAST] [--acts N] [--interrupt PERCENT] [--save FOLDER]: a user who does
// whatever can be done, in the windows and inside the program's yields, one run a seed. Without a percentage
// each seed is run with 15 and with 40. A failure is told with its seed, and what was done is saved as a
// scenario that fails in the same way, made as short as it gets. The last line says "N passed, N failed"; the
// exit code is 1 when anything failed.

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "random_user/shrink.h"

namespace {

using namespace lumidex::random_user;

struct Options {
  std::uint64_t first = 1, last = 10;
  int acts = 60;
  std::vector<int> percentages{15, 40};
  std::filesystem::path folder = ".";
};

// False for options that make no sense.
bool Read(int argc, char** argv, Options& options) {
  for (int i = 1; i < argc; i += 2) {
    const char* value = i + 1 < argc ? argv[i + 1] : "";
    unsigned long long first = 0, last = 0;
    int number = 0;
    if (std::strcmp(argv[i], "--seeds") == 0 && std::sscanf(value, "%llu-%llu", &first, &last) == 2) {
      options.first = first;
      options.last = last;
    } else if (std::strcmp(argv[i], "--acts") == 0 && std::sscanf(value, "%d", &number) == 1) {
      options.acts = number;
    } else if (std::strcmp(argv[i], "--interrupt") == 0 && std::sscanf(value, "%d", &number) == 1) {
      options.percentages = {number};
    } else if (std::strcmp(argv[i], "--save") == 0 && *value != '\0') {
      options.folder = value;
    } else {
      return false;
    }
  }
  return true;
}

void Report(const Plan& plan, const Outcome& outcome, const std::filesystem::path& folder) {
  constexpr int mostTries = 400;
  std::printf("seed %llu, %d %%: %s\n", static_cast<unsigned long long>(plan.seed), plan.interruptPercent,
              outcome.failure.c_str());
  // Only what fails again can be made shorter.
  const Outcome again = RunText(outcome.scenario);
  const bool failsAgain = again.Kind() == outcome.Kind();
  const std::string text =
      failsAgain ? Shrunk(outcome.scenario, outcome.Kind(), mostTries) : outcome.scenario;
  const auto file =
      folder / ("random_" + std::to_string(plan.seed) + "_" + std::to_string(plan.interruptPercent) + ".scn");
  std::ofstream(file, std::ios::binary) << text;
  std::printf("  saved as %s%s\n", file.c_str(),
              failsAgain ? "" : (", which by itself comes to: " + again.failure).c_str());
  std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) {
  Options options;
  if (!Read(argc, argv, options)) {
    std::fputs(
        "usage: lumidex-random-user [--seeds FIRST-LAST] [--acts N] [--interrupt PERCENT] [--save FOLDER]\n",
        stderr);
    return 2;
  }
  int passed = 0, failed = 0;
  for (std::uint64_t seed = options.first; seed <= options.last; ++seed) {
    for (const int percent : options.percentages) {
      const Plan plan{seed, options.acts, percent};
      const Outcome outcome = RunPlan(plan);
      if (outcome.failure.empty()) {
        ++passed;
        continue;
      }
      ++failed;
      Report(plan, outcome, options.folder);
    }
  }
  std::printf("%d passed, %d failed\n", passed, failed);
  return failed == 0 ? 0 : 1;
}
