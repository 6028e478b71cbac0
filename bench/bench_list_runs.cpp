// bench_list_runs scan DIRECTORY | bmp DIRECTORY | jpg DIRECTORY: what goes through the whole Display list,
// with the program's own windows. The list is the files of the directory.
//
// scan: all three counts, the reports written into the directory above, against reading the first 4 KiB of
// each file. Both in turn in one process, five times; prints the medians and their ratio, the longest time
// the event loop was away meanwhile, and how long a scan goes on that is closed half way.
//
// bmp, jpg: converts the list into "convert" in the directory and prints the time; to be set beside other
// converters.

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <filesystem>

#include "batch/batch_conversion.h"
#include "forms/WPaper2.h"
#include "forms/frmConvertFileType.h"
#include "forms/frmPreferences.h"
#include "forms/frmstats.h"
#include "longest_absence.h"
#include "reports/scan.h"
#include "timing.h"
#include "window_program.h"

namespace {

using namespace lumidex;

void ReadHeads(const std::vector<std::string>& paths) {
  std::array<char, 4096> head;
  for (const std::string& path : paths) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) continue;
    if (read(file, head.data(), head.size()) < 0) std::abort();
    close(file);
  }
}

QElapsedTimer Started() {
  QElapsedTimer timer;
  timer.start();
  return timer;
}

// Of this thread, which is what other work on the machine changes least.
double ProcessorMilliseconds() {
  timespec used{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &used);
  return static_cast<double>(used.tv_sec) * 1e3 + static_cast<double>(used.tv_nsec) / 1e6;
}

void MeasureScan(App& app, const std::vector<std::string>& paths) {
  for (CheckBox* count : {&app.frmPreferences.chkCountFileTypes, &app.frmPreferences.chkCountFileSize,
                          &app.frmPreferences.chkCountFileColorDepth}) {
    count->Value = 1;
  }
  std::vector<double> bare, scanned, bareProcessor, scannedProcessor;
  double away = 0;
  for (int round = 0; round < 5; ++round) {
    double before = ProcessorMilliseconds();
    bare.push_back(Milliseconds([&] { ReadHeads(paths); }));
    bareProcessor.push_back(ProcessorMilliseconds() - before);
    app.frmstats.Show();
    // The user presses the button in a window that stands there.
    for (QElapsedTimer shown = Started(); shown.elapsed() < 100;) app.platform.events.Wait(10);
    app.frmstats.ScanRunning = true;
    const LongestAbsence absence;
    before = ProcessorMilliseconds();
    scanned.push_back(Milliseconds([&] { ScanFiles(app); }));
    scannedProcessor.push_back(ProcessorMilliseconds() - before);
    away = std::max(away, absence.Milliseconds());
    app.frmstats.Unload();
  }
  app.frmstats.Show();
  app.frmstats.ScanRunning = true;
  QElapsedTimer sinceClosed;
  QTimer::singleShot(static_cast<int>(Median(scanned) / 2), [&] {
    sinceClosed.start();
    app.frmstats.cmdClose.OnClick();
  });
  ScanFiles(app);
  std::printf("first 4 KiB  %8.1f ms\nscan         %8.1f ms\nratio        %8.2f\n", Median(bare),
              Median(scanned), Median(scanned) / Median(bare));
  std::printf("of it this thread's processor time: %.1f and %.1f ms, ratio %.2f\n", Median(bareProcessor),
              Median(scannedProcessor), Median(scannedProcessor) / Median(bareProcessor));
  std::printf("longest away %8.1f ms\nclosed after %8.1f ms\n", away,
              static_cast<double>(sinceClosed.nsecsElapsed()) / 1e6);
}

void Convert(App& app, int type) {
  app.platform.events.Post([&app, type] {
    app.frmConvertFileType.optFileType(type).Value = true;
    app.frmConvertFileType.chkAddConvertFolder.Value = 1;
    app.frmConvertFileType.cmdConvert.OnClick();
  });
  std::printf("%.1f ms\n", Milliseconds([&] { ConvertImages(app); }));
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  const std::string what = argv[1], directory = argv[2];
  std::vector<std::string> paths;
  for (const auto& entry : std::filesystem::directory_iterator(directory)) {
    if (entry.is_regular_file()) paths.push_back(std::filesystem::absolute(entry.path()));
  }
  std::ranges::sort(paths);
  int noArguments = 1;
  Program program(noArguments, argv);
  App& app = program.app;
  app.AppPath = std::filesystem::absolute(directory).parent_path().string() + "/";
  for (const std::string& path : paths) app.WPaper2.LstRight.AddItem(path);
  app.WPaper2.lblCount.Caption = std::to_string(paths.size());
  app.platform.events.Post([&] {
    if (what == "scan") MeasureScan(app, paths);
    if (what == "jpg" || what == "bmp") Convert(app, what == "jpg" ? 1 : 0);
    std::fflush(stdout);
    std::_Exit(0);
  });
  program.desktop.Run();
}
