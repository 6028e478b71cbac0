// bench_shown WIDTHxHEIGHT FILE...: a file decoded for being shown in a window of that size against Qt's own
// reader told of the same size, which reduces JPEG while it decodes and scales everything else afterwards.
// Each run is a process of its own, the two sides in turn; prints the medians of the processor time, the time
// on the wall and the most memory, and the ratios.

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QImage>
#include <QImageReader>
#include <cstdio>
#include <string>

#include "pictures/picture.h"
#include "pictures/picture_data.h"
#include "pictures/pixels.h"
#include "platform/posix/posix_file_system.h"
#include "ports/open_picture.h"
#include "timing.h"

namespace {

using namespace lumidex;

constexpr int rounds = 7;

// What fits the window, proportions kept, never enlarged.
Size Fitted(Size picture, Size window) {
  const double factor = std::min({1.0, static_cast<double>(window.width) / picture.width,
                                  static_cast<double>(window.height) / picture.height});
  return {std::max(1, static_cast<int>(picture.width * factor)),
          std::max(1, static_cast<int>(picture.height * factor))};
}

bool ShowByUs(const std::string& path, Size window) {
  const Picture picture = Picture::Open(OpenPictureData(PosixFileSystem(), path));
  return !picture.PixelsToShow(Fitted(picture.GetSize(), window)).IsEmpty();
}

bool ShowByQt(const std::string& path, Size window) {
  QImageReader::setAllocationLimit(0);
  QImageReader reader(QString::fromStdString(path));
  const Size fitted = Fitted({reader.size().width(), reader.size().height()}, window);
  reader.setScaledSize({fitted.width, fitted.height});
  const QImage image = reader.read();
  return !image
              .convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                       : QImage::Format_RGB32)
              .isNull();
}

struct Cost {
  std::vector<double> processor, wall, mebibytes;
};

// False when the file could not be shown.
bool Measure(Cost& cost, const std::function<bool()>& show) {
  rusage used{};
  int status = 0;
  const double wall = Milliseconds([&] {
    const pid_t child = fork();
    if (child == 0) _exit(show() ? 0 : 1);
    wait4(child, &status, 0, &used);
  });
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) return false;
  const auto milliseconds = [](const timeval& time) {
    return 1e3 * static_cast<double>(time.tv_sec) + 1e-3 * static_cast<double>(time.tv_usec);
  };
  cost.processor.push_back(milliseconds(used.ru_utime) + milliseconds(used.ru_stime));
  cost.wall.push_back(wall);
  cost.mebibytes.push_back(static_cast<double>(used.ru_maxrss) / 1024);
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  Size window;
  if (argc < 3 || std::sscanf(argv[1], "%dx%d", &window.width, &window.height) != 2) return 2;
  for (int i = 2; i < argc; ++i) {
    const std::string path = argv[i];
    Cost ours, qts;
    bool shown = true;
    for (int round = 0; shown && round < rounds; ++round) {
      shown = Measure(qts, [&] { return ShowByQt(path, window); }) &&
              Measure(ours, [&] { return ShowByUs(path, window); });
    }
    std::printf("%s\n", path.c_str());
    if (!shown) {
      std::puts("  cannot be shown by both");
      continue;
    }
    const auto print = [](const char* what, const std::vector<double>& our, const std::vector<double>& qt) {
      std::printf("  %-16s %8.1f against %8.1f, ratio %.2f\n", what, Median(our), Median(qt),
                  Median(our) / Median(qt));
    };
    print("processor, ms", ours.processor, qts.processor);
    print("wall, ms", ours.wall, qts.wall);
    print("memory, MiB", ours.mebibytes, qts.mebibytes);
  }
  return 0;
}
