#pragma once
// What of a TIFF of numbers with a point is shown as black and what as white.

#include <span>
#include <vector>

#include "pictures/codecs/tiff_file.h"
#include "pictures/pixels.h"

namespace lumidex {

struct TiffRange {
  double low = 0, high = 1;
};

// From 0 to 1 when most numbers lie there, zeros apart, which fill what is empty; else the range of all but
// those that lie far from the others. Transparency has no say.
class TiffRangeFinder {
 public:
  TiffRangeFinder(const TiffLayout& layout, Size size);
  // Some `width` pixels of a row, as TiffBands gives them.
  void Add(std::span<const std::uint8_t* const> planes, std::size_t width);
  TiffRange Range();

 private:
  void AddNumber(double number);

  TiffLayout layout_;
  std::int64_t within_ = 0, beyond_ = 0;
  std::size_t every_;  // how many numbers one of the sample stands for
  std::size_t skipped_ = 0;
  std::vector<double> sample_;
};

}  // namespace lumidex
