#pragma once
// The memory that a window is painted into. The system provides it page by page as it is written to for the
// first time, which takes as long as all of the painting of a large window.

#include <QWidget>
#include <atomic>
#include <cstddef>
#include <span>
#include <thread>
#include <vector>

namespace lumidex {

// Provides it for a window that stands but has not been painted yet, on other threads while this one has
// something else to do. Called on the event thread.
class PaintedMemory {
 public:
  // Begins, for the size that the window has now.
  void Begin(QWidget& window);
  // Helps until it is done. Must be called before the window is painted or gets another size.
  void Finish();

 private:
  void ProvideParts();

  std::span<std::byte> bytes_;
  std::atomic<std::size_t> next_ = 0;  // where the part begins that nobody has taken yet
  std::vector<std::jthread> threads_;
};

}  // namespace lumidex
