#include "platform/qt/painted_memory.h"

#include <QBackingStore>
#include <QImage>
#include <QRegion>

#include "base/memory_pages.h"

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
    auto* bytes = reinterpret_cast<std::byte*>(const_cast<uchar*>(image->constBits()));
    ProvidePages({bytes, static_cast<std::size_t>(image->sizeInBytes())});
  }
  store->endPaint();
}

}  // namespace lumidex
