#include "platform/qt/painted_memory.h"

#include <QBackingStore>
#include <QImage>
#include <QRegion>
#include <algorithm>

#include "base/memory_pages.h"
#include "base/start_thread.h"

namespace lumidex {
namespace {

// As much as the system is asked for at a time.
constexpr std::size_t part = 256 << 10;
// To begin another thread takes as long as some of these.
constexpr std::size_t leastOfThread = 2 << 20;
constexpr std::size_t mostThreads = 3;

// The bytes that the window will be painted into, where those lie in this process.
std::span<std::byte> PaintedBytes(QWidget& window) {
  QBackingStore* store = window.backingStore();
  if (!store) return {};
  store->resize(window.size());
  store->beginPaint(QRegion());
  std::span<std::byte> bytes;
  const QPaintDevice* painted = store->paintDevice();
  if (painted && painted->devType() == QInternal::Image) {
    const auto* image = static_cast<const QImage*>(painted);
    // They are neither read nor written here.
    bytes = {reinterpret_cast<std::byte*>(const_cast<uchar*>(image->constBits())),
             static_cast<std::size_t>(image->sizeInBytes())};
  }
  store->endPaint();
  return bytes;
}

}  // namespace

void PaintedMemory::Begin(QWidget& window) {
  Finish();
  bytes_ = PaintedBytes(window);
  next_ = 0;
  const std::size_t processors = std::max(std::thread::hardware_concurrency(), 1U);
  const std::size_t threads = std::min({processors - 1, bytes_.size() / leastOfThread, mostThreads});
  while (threads_.size() < threads) {
    auto thread = StartThread([this] { ProvideParts(); },
                              threads_.empty() ? Beginning::Elsewhere : Beginning::Anywhere);
    if (!thread) break;
    threads_.push_back(std::move(*thread));
  }
}

void PaintedMemory::Finish() {
  ProvideParts();
  threads_.clear();
  bytes_ = {};
}

void PaintedMemory::ProvideParts() {
  for (;;) {
    const std::size_t begin = next_.fetch_add(part);
    if (begin >= bytes_.size()) return;
    ProvidePages(bytes_.subspan(begin, std::min(part, bytes_.size() - begin)));
  }
}

}  // namespace lumidex
