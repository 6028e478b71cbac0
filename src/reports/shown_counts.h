#pragma once
// The counters of a scan in the boxes of its window.

#include "forms/app.h"
#include "reports/scan_counts.h"

namespace lumidex {

class ShownCounts {
 public:
  explicit ShownCounts(App& app) : app_(app) {}
  // `current` stands in the box of the current file. A sum that leaves its 16 bits keeps the text it had.
  void Show(const ScanCounts& counts, std::int32_t current);

 private:
  template <class Counter, class Write>
  void WriteNew(Counter& shown, Counter counted, Write write);
  void ShowSums();

  App& app_;
  ScanCounts shown_;
  std::int16_t shownFiles_ = 0;
  // A file changes some of fifty boxes. The others hold what they shall unless another scan was here.
  int turn_ = 0;
  bool writesAll_ = true;
};

}  // namespace lumidex
