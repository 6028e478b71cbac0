#include "reports/scan_counts.h"

#include <numeric>

#include "base/run_time_error.h"
#include "base/text.h"
#include "base/widths.h"

namespace lumidex {
namespace {

constexpr std::array<int, 5> countedDepths = {2, 4, 8, 16, 24};
constexpr std::int32_t sizeStep = 100000;

// The step that overflows is skipped, as all errors of the scan are.
void Raise(std::int16_t& counter) {
  IgnoreError([&] { counter = ToInt16(counter + 1); });
}

template <class Counters>
int Sum(const Counters& counters) {
  return std::accumulate(counters.begin(), counters.end(), 0);
}

}  // namespace

bool ScanCounts::CountDepth(float bitsPerPixel) {
  for (std::size_t i = 0; i < countedDepths.size(); ++i) {
    if (bitsPerPixel != static_cast<float>(countedDepths[i])) continue;
    Raise(depths[i]);
    return true;
  }
  Raise(otherDepths);
  return false;
}

void ScanCounts::CountSize(std::int32_t bytes) {
  IgnoreError([&] { totalBytes = ToInt32(std::int64_t{totalBytes} + bytes); });
  if (bytes == 0) Raise(emptyFiles);
  if (bytes <= 0) return;
  const auto step = static_cast<std::size_t>((bytes - 1) / sizeStep);
  Raise(sizes[std::min(step, sizes.size() - 1)]);
}

void ScanCounts::CountType(const std::string& path) {
  constexpr int jpeg = 13;
  // Types have no blanks, so those at the front decide nothing.
  const auto end = path.find_last_not_of(' ') + 1;  // npos + 1 is 0
  const std::string extension = UCase(Right(std::string_view(path).substr(0, end), 4));
  if (extension == ".JPE") Raise(types[jpeg]);
  if (const int type = FileTypeOf(extension)) Raise(types[static_cast<std::size_t>(type)]);
}

std::int16_t ScanCounts::TypeTotal() const {
  return ToInt16(Sum(types));
}

std::int16_t ScanCounts::DepthTotal() const {
  return ToInt16(Sum(depths) + otherDepths);
}

}  // namespace lumidex
