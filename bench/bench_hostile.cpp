// What files made to be costly take: processor time against 2 s, memory against 512 MiB, for each file of at
// most 1 MiB. Without arguments those of the hostile_*.h here, else the files named (a folder: all in it).
// Each is decoded in a process of its own.

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "base/run_time_error.h"
#include "hostile_plus_drawings.h"
#include "hostile_rasters.h"
#include "pictures/codec.h"

namespace {

using namespace lumidex;

constexpr double mostSeconds = 2;
constexpr double mostMebibytes = 512;
constexpr int allowed = 0, refused = 3;

int DecodeAll(const std::vector<std::uint8_t>& bytes, const std::string& extension) {
  try {
    const auto decoder = OpenDecoder(PictureData(std::make_shared<MemorySource>(bytes), extension), {});
    return decoder->Decode({}).IsEmpty() ? refused : allowed;
  } catch (const RunTimeError&) {
    return refused;
  }
}

struct Worst {
  double seconds = 0;
  double mebibytes = 0;
  bool bad = false;
};

void Measure(const std::string& name, const std::string& extension, const std::vector<std::uint8_t>& bytes,
             Worst& worst) {
  std::fflush(stdout);
  const pid_t child = fork();
  if (child == 0) {
    const rlimit most{20, 20};  // seconds
    setrlimit(RLIMIT_CPU, &most);
    _exit(DecodeAll(bytes, extension));
  }
  int status = 0;
  rusage used{};
  if (child < 0 || wait4(child, &status, 0, &used) != child) return;
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
  };
  const double taken = seconds(used.ru_utime) + seconds(used.ru_stime);
  const double mebibytes = static_cast<double>(used.ru_maxrss) / 1024;
  const bool ended = WIFEXITED(status) && (WEXITSTATUS(status) == allowed || WEXITSTATUS(status) == refused);
  const bool bad = !ended || taken > mostSeconds || mebibytes > mostMebibytes;
  std::printf("%-40s %8zu bytes %7.3f s %5.0f MiB%s%s\n", name.c_str(), bytes.size(), taken, mebibytes,
              ended && WEXITSTATUS(status) == refused ? "  refused" : "", bad ? "  TOO MUCH" : "");
  worst.seconds = std::max(worst.seconds, taken);
  worst.mebibytes = std::max(worst.mebibytes, mebibytes);
  worst.bad = worst.bad || bad;
}

void MeasureFile(const std::filesystem::path& path, Worst& worst) {
  std::ifstream file(path, std::ios::binary);
  const std::vector<std::uint8_t> bytes{std::istreambuf_iterator<char>(file), {}};
  Measure(path.filename().string(), path.extension().string(), bytes, worst);
}

}  // namespace

int main(int argc, char** argv) {
  Worst worst;
  for (int i = 1; i < argc; ++i) {
    if (!std::filesystem::is_directory(argv[i])) {
      MeasureFile(argv[i], worst);
      continue;
    }
    for (const auto& entry : std::filesystem::recursive_directory_iterator(argv[i]))
      if (entry.is_regular_file()) MeasureFile(entry.path(), worst);
  }
  if (argc == 1) {
    for (const auto* files : {&HostileDrawings(), &HostilePlusDrawings(), &HostileRasters()})
      for (const HostileFile& file : *files)
        Measure(std::string(file.name), std::string(file.extension), file.make(), worst);
  }
  std::printf("worst: %.3f s, %.2f of the limit; %.0f MiB, %.2f of the limit\n", worst.seconds,
              worst.seconds / mostSeconds, worst.mebibytes, worst.mebibytes / mostMebibytes);
  return worst.bad ? 1 : 0;
}
