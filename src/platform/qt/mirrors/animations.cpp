// Animations: they play while they are seen.

#include <QPainter>
#include <QTimer>
#include <QWidget>

#include "base/run_time_error.h"
#include "controls/animation.h"
#include "pictures/animation_file.h"
#include "platform/qt/conversions.h"
#include "platform/qt/guarded.h"
#include "platform/qt/mirrors/mirrors.h"

namespace lumidex {
namespace {

// What is longer is no small animation.
constexpr std::uint64_t mostBytes = std::uint64_t{64} << 20;

std::optional<AnimationFile> Read(const FileSystem& files, const std::string& path) {
  std::optional<AnimationFile> read;
  if (path.empty()) return read;
  IgnoreError([&] {
    const auto source = files.Open(path);
    if (source->Size() > mostBytes) return;
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(source->Size()));
    bytes.resize(source->ReadAt(0, bytes));
    read.emplace(std::move(bytes));
  });
  return read;
}

class AnimationView final : public PaintedWidget {
 public:
  explicit AnimationView(QWidget* parent) : PaintedWidget(parent), pace_(new QTimer(this)) {
    connect(pace_, &QTimer::timeout, this,
            [this] { PaintGuarded(*this, [this] { ShowFrame((number_ + 1) % file_->FrameCount()); }); });
  }

  void Play(std::optional<AnimationFile> file) {
    pace_->stop();
    file_ = std::move(file);
    image_ = {};
    if (file_) {
      pace_->setInterval(file_->MillisecondsPerFrame());
      frame_ = {};
      ShowFrame(0);
      if (isVisible()) pace_->start();
    }
    updateGeometry();
    update();
  }

  QSize sizeHint() const override {
    return file_ ? QSize(file_->FrameSize().width, file_->FrameSize().height) : QSize(0, 0);
  }

 protected:
  void showEvent(QShowEvent*) override {
    if (file_) pace_->start();
  }
  void hideEvent(QHideEvent*) override { pace_->stop(); }
  void Paint() override {
    if (image_.isNull()) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(rect(), image_);
  }

 private:
  void ShowFrame(int number) {
    number_ = number;
    file_->Advance(frame_, number);
    if (number == 0) ground_ = frame_.Row(0).front();
    Pixels seen = Pixels::Make(frame_.GetSize(), PixelFormat::Argb, 0);
    for (int y = 0; y < frame_.Height(); ++y)
      std::ranges::copy(std::as_const(frame_).Row(y), seen.Row(y).begin());
    ClearGround(seen, ground_);
    image_ = ToImage(seen);
    update();
  }

  std::optional<AnimationFile> file_;
  QTimer* pace_;
  int number_ = 0;
  std::uint32_t ground_ = 0;
  Pixels frame_;
  QImage image_;
};

}  // namespace

QWidget* MakeAnimation(FormView& view, Animation& control, QWidget* parent) {
  auto* shown = new AnimationView(parent);
  view.Follow(control, shown, [&view, &control, shown, path = std::string()]() mutable {
    if (path == control.FileName()) return;
    path = control.FileName();
    shown->Play(Read(view.GetForm().GetPlatform().files, path));
  });
  return shown;
}

}  // namespace lumidex
