#include "platform/qt/painted_memory.h"

#include <QBackingStore>
#include <QImage>
#include <QRegion>

#include <cstddef>
#include <span>

#include "base/memory_pages.h"
#include "pictures/in_parts.h"

namespace lumidex {

void ProvidePaintedMemory(QWidget& window) {
  QBackingStore* store = window.backingStore();
  if (!store) return;
  store->resize(window.size());
  store->beginPaint(QRegion());
  const QPaintDevice* painted = store->paintDevice();
  if (painted && painted->devType() == QInternal::Image) {
    const auto* image = static_cast<const QImage*>(painted);
    // It is neither read nor written.
    auto* begin = reinterpret_cast<std::byte*>(const_cast<uchar*>(image->constBits()));
    const std::span bytes(begin, static_cast<std::size_t>(image->sizeInBytes()));
    // To begin another thread takes as long as some of these.
    constexpr std::size_t least = 2 << 20;
    InParts(bytes.size(), least,
            [&](std::size_t from, std::size_t to) { ProvidePages(bytes.subspan(from, to - from)); });
  }
  store->endPaint();
}

}  // namespace lumidex
