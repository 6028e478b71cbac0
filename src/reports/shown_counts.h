#pragma once
// The counters of a scan in the boxes of its window.

#include "forms/app.h"
#include "reports/scan_counts.h"

namespace lumidex {

// `current` stands in the box of the current file. A sum that leaves its 16 bits keeps the text it had.
void ShowCounts(App& app, const ScanCounts& counts, std::int32_t current);

}  // namespace lumidex
