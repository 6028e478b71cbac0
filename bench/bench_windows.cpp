// bench_windows page DIRECTORY | preview FILE | pan FILE | show DIRECTORY | wallpaper FILE: what a person
// waits for in the program's own windows, each beside the limit that is told here. To be run on a screen with
// a window manager.
//
// page: the thumbnail viewer with the 28 JPEG files of a page, from its opening to the last picture painted,
// against a bare window that paints what Qt's reader makes of the same files on two threads. Five times in
// turn behind one that is not counted; also the longest time the event loop was away.
//
// preview: from the change of a slider of the brightness and contrast dialog to the preview painted.
//
// pan: the zoom viewer at 1,000 %, from a scroll value to the picture painted, 300 steps.
//
// show: 1,000 steps of the slide show; the resident memory behind the first 50 and at the end.
//
// wallpaper: the picture made the wallpaper, against its file's bytes written at once into the same folder.

#include <unistd.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QImageReader>
#include <QPainter>
#include <QTimer>
#include <QWidget>
#include <atomic>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <mutex>
#include <thread>

#include "forms/checkjpg.h"
#include "forms/frmAdjustContrastandBrightness.h"
#include "forms/frmThumbNail.h"
#include "forms/frmZoomView.h"
#include "imaging/wallpaper.h"
#include "lists/image_lists.h"
#include "longest_absence.h"
#include "slideshow/slide_show.h"
#include "timing.h"
#include "window_program.h"

namespace {

using namespace lumidex;

constexpr std::size_t pageCells = 28;

// Serves events until it holds, a minute at most.
void ServeUntil(const std::function<bool()>& holds) {
  QElapsedTimer passed;
  passed.start();
  bool isThere = holds();
  while (!isThere && passed.elapsed() < 10'000) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    isThere = holds();
  }
  if (!isThere) std::fprintf(stderr, "what was waited for did not come\n");
}

// Counts the paints of the widget of one control.
class PaintCounter : public QObject {
 public:
  explicit PaintCounter(QString name) : name_(std::move(name)) { qApp->installEventFilter(this); }
  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::Paint && object->objectName() == name_) ++count_;
    return false;
  }
  int Count() const { return count_; }

 private:
  QString name_;
  int count_ = 0;
};

// What the widget of a control on the screen shows.
QImage Seen(const QString& name) {
  for (QWidget* widget : QApplication::allWidgets()) {
    if (widget->objectName() == name && widget->isVisible()) return widget->grab().toImage();
  }
  return {};
}

// Serves events until the control was painted so.
void ServeUntilSeen(const QString& name, const std::function<bool(const QImage&)>& isRight) {
  const PaintCounter paints(name);
  int looked = -1;
  ServeUntil([&] {
    if (paints.Count() == looked) return false;
    const bool answer = isRight(Seen(name));
    // The look was a paint too.
    looked = paints.Count();
    return answer;
  });
}

struct BarePage : QWidget {
  explicit BarePage(const std::vector<std::string>& files) : paths(files) { resize(1920, 1000); }
  void paintEvent(QPaintEvent*) override {
    constexpr int across = 9;
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    const std::scoped_lock lock(mutex);
    painted = done;
    for (std::size_t i = 0; i < pageCells; ++i) {
      const int cell = static_cast<int>(i);
      if (!images[i].isNull())
        painter.drawImage(20 + cell % across * 200, 20 + cell / across * 150, images[i]);
    }
  }
  void Read() {
    for (std::size_t i = next++; i < paths.size(); i = next++) {
      QImageReader reader(QString::fromStdString(paths[i]));
      reader.setScaledSize(reader.size().scaled(128, 128, Qt::KeepAspectRatio));
      QImage image = reader.read();
      const std::scoped_lock lock(mutex);
      images[i] = std::move(image);
      ++done;
    }
  }
  void Complete() {
    std::thread first([this] { Read(); }), second([this] { Read(); });
    QTimer refresh;
    connect(&refresh, &QTimer::timeout, this, [this] {
      if (painted != done) update();
    });
    refresh.start(16);
    show();
    ServeUntil([this] { return painted == static_cast<int>(paths.size()); });
    first.join();
    second.join();
  }

  const std::vector<std::string>& paths;
  QImage images[pageCells];
  std::mutex mutex;
  std::atomic<std::size_t> next{0};
  std::atomic<int> done{0};
  int painted = 0;
};

void MeasurePage(App& app, const std::vector<std::string>& paths) {
  std::vector<double> bare, ours;
  double away = 0;
  frmThumbNailWindow& viewer = app.frmThumbNail;
  const auto cell = [](std::size_t number) { return QString("imgThumbNail(%1)").arg(number); };
  std::vector<QImage> complete;
  for (int round = 0; round < 6; ++round) {
    const double bareTime = Milliseconds([&] { BarePage(paths).Complete(); });
    const LongestAbsence absence;
    const double time = Milliseconds([&] {
      viewer.Show();
      ServeUntil([&] { return viewer.ViewerReady && !viewer.PageFilling; });
      for (std::size_t i = 0; i < complete.size(); ++i) {
        ServeUntilSeen(cell(i + 1), [&](const QImage& image) { return image == complete[i]; });
      }
    });
    if (complete.empty()) {
      // The first round shows how the pictures look.
      QTimer::singleShot(5000, [&] {
        for (std::size_t i = 1; i <= paths.size(); ++i) complete.push_back(Seen(cell(i)));
      });
      ServeUntil([&] { return !complete.empty(); });
    } else {
      bare.push_back(bareTime);
      ours.push_back(time);
      away = std::max(away, absence.Milliseconds());
    }
    viewer.Unload();
    ServeUntil([&] { return !viewer.Visible(); });
  }
  std::printf("bare page    %8.1f ms\nour page     %8.1f ms\nratio        %8.2f\nlongest away %8.1f ms\n",
              Median(bare), Median(ours), Median(ours) / Median(bare), away);
}

// Everything that is on the screen is decoded, and its neighbours have been read.
void ServeUntilShown(App& app) {
  // What is to be decoded is known a frame later. What is read ahead ends without an event.
  bool isFrameOver = false;
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, [&] { isFrameOver = true; });
  look.start(20);
  ServeUntil([&] { return isFrameOver && !app.platform.decoding.HasWork(); });
}

void ShowFirst(App& app) {
  app.WPaper2.LstRight.SetListIndex(0);
  DisplayListClick(app);
  ServeUntilShown(app);
}

void Print(const std::vector<double>& times) {
  std::printf("median       %8.1f ms\nlongest      %8.1f ms\n", Median(times),
              *std::ranges::max_element(times));
}

void MeasurePreview(App& app) {
  ShowFirst(app);
  app.frmAdjustContrastandBrightness.Show();
  ServeUntilShown(app);
  QImage before = Seen("imgModified");
  std::vector<double> times;
  for (int step = 0; step < 41; ++step) {
    times.push_back(Milliseconds([&] {
      app.frmAdjustContrastandBrightness.HScroll1.Value = step % 2 == 0 ? step + 5 : -step;
      ServeUntilSeen("imgModified", [&](const QImage& image) { return image != before; });
    }));
    before = Seen("imgModified");
  }
  std::printf("first        %8.1f ms\n", times.front());
  times.erase(times.begin());
  Print(times);
}

void MeasurePan(App& app) {
  ShowFirst(app);
  constexpr int thousandPercent = 16;
  frmZoomViewWindow& viewer = app.frmZoomView;
  viewer.Load();
  viewer.Gvbox1.SetPicture(app.WPaper2.Image1.Picture);
  viewer.Show();
  app.platform.events.Yield();
  viewer.mnuZoomLevel(thousandPercent).OnClick();
  std::printf("zoom         %8.0f %%\n", double{viewer.Gvbox1.ZoomLevel} * 100);
  const int most = viewer.Gvbox1.ScrollMaxX();
  const PaintCounter paints("Gvbox1");
  std::vector<double> times;
  for (int step = 0; step < 300; ++step) {
    const int before = paints.Count();
    times.push_back(Milliseconds([&] {
      viewer.Gvbox1.SetScrollX(most / 300 * step);
      viewer.Gvbox1.SetScrollY(most / 600 * step);
      ServeUntil([&] { return paints.Count() > before; });
    }));
  }
  Print(times);
}

double ResidentMebibytes() {
  std::ifstream file("/proc/self/statm");
  double all = 0, resident = 0;
  file >> all >> resident;
  return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1048576;
}

void MeasureShow(App& app) {
  constexpr int settled = 50, steps = 1000;
  ShowFirst(app);
  double begin = 0, most = 0;
  bool firstSlide = true;
  for (int step = 0; step < steps; ++step) {
    SlideShowStep(app, firstSlide);
    ServeUntilShown(app);
    // The pause between two steps, in which the neighbours are read.
    bool isOver = false;
    QTimer::singleShot(150, [&] { isOver = true; });
    ServeUntil([&] { return isOver; });
    if (step == settled) begin = ResidentMebibytes();
    if (step >= settled) most = std::max(most, ResidentMebibytes());
  }
  std::printf("behind step %d %8.1f MiB\nmost          %8.1f MiB\nat the end    %8.1f MiB\n", settled, begin,
              most, ResidentMebibytes());
}

void MeasureWallpaper(App& app, const std::string& folder) {
  ShowFirst(app);
  SetWallpaperCentered(app);
  std::ifstream in(folder + "Lumidex.bmp", std::ios::binary);
  const std::string bytes(std::istreambuf_iterator<char>(in), {});
  std::vector<double> bare, ours;
  for (int round = 0; round < 9; ++round) {
    bare.push_back(Milliseconds([&] {
      app.platform.files.Write(folder + "bare.bmp", [&](ByteSink& sink) {
        sink.Write({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
      });
    }));
    ours.push_back(Milliseconds([&] { SetWallpaperCentered(app); }));
  }
  std::printf("bytes written %8.1f ms\nwallpaper     %8.1f ms\nratio         %8.2f\n", Median(bare),
              Median(ours), Median(ours) / Median(bare));
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  const std::string what = argv[1];
  const std::filesystem::path place = std::filesystem::absolute(argv[2]);
  std::vector<std::string> paths;
  if (std::filesystem::is_directory(place)) {
    for (const auto& entry : std::filesystem::directory_iterator(place)) {
      if (entry.path().extension() == ".jpg") paths.push_back(entry.path());
    }
    std::ranges::sort(paths);
  } else {
    paths.push_back(place);
  }
  if (what == "page" && paths.size() > pageCells) paths.resize(pageCells);
  int noArguments = 1;
  Program program(noArguments, argv);
  App& app = program.app;
  // Where the wallpaper's file is to lie.
  app.AppPath = argc > 3 ? std::string(argv[3]) : std::filesystem::temp_directory_path().string() + "/";
  for (const std::string& path : paths) app.WPaper2.LstRight.AddItem(path);
  app.WPaper2.lblCount.Caption = std::to_string(paths.size());
  app.platform.events.Post([&] {
    app.platform.events.Yield();
    if (what == "page") MeasurePage(app, paths);
    if (what == "preview") MeasurePreview(app);
    if (what == "pan") MeasurePan(app);
    if (what == "show") MeasureShow(app);
    if (what == "wallpaper") MeasureWallpaper(app, app.AppPath);
    std::fflush(stdout);
    std::_Exit(0);
  });
  program.desktop.Run();
}
