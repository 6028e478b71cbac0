// The settings file, whatever it holds: it is refused with an error of the program or read, and what was read
// is written as whole lines that read the same.

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "base/run_time_error.h"
#include "forms/frmPreferences.h"
#include "platform/headless/headless_platform.h"
#include "preferences/settings_file.h"
#include "windows/windows.h"

namespace {

using namespace lumidex;

constexpr const char* path = "C:\\Lumidex\\Lumidex.Cfg";

struct Program {
  Program() {
    WireWindows(app);
    app.AppPath = "C:\\Lumidex\\";
    app.frmPreferences.Load();
  }
  std::string ReadAndWritten(const std::string& settings) {
    platform.files.AddFile(path, settings);
    ReadSettings(app);
    WriteSettings(app);
    return platform.files.ReadAll(path);
  }
  HeadlessPlatform platform;
  App app{platform.ports};
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    Program program;
    const std::string first = program.ReadAndWritten(std::string(data, data + size));
    // Types 1 and 2 follow 19 and 29 from the second reading on.
    const std::string second = program.ReadAndWritten(first);
    if (std::ranges::count(second, '\n') != 57) std::abort();
    if (program.ReadAndWritten(second) != second) std::abort();
  } catch (const RunTimeError& error) {
    const bool isOutOfRange =
        error.Number() == ErrorNumber::InvalidPropertyValue || error.Number() == ErrorNumber::Overflow;
    if (!isOutOfRange) std::abort();
  }
  return 0;
}
