#include "pictures/codecs/tiff_range.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "pictures/codecs/tiff_numbers.h"

namespace lumidex {
namespace {

// Enough to tell the quarters of any picture by.
constexpr std::size_t sampleSize = 65536;
// How many times as far from the middle half of all numbers as that half is wide a number may lie.
constexpr double farthest = 3;

TiffRange WithoutFarOnes(std::span<const double> sorted) {
  const double quarter = sorted[sorted.size() / 4], threeQuarters = sorted[sorted.size() * 3 / 4];
  const double reach = farthest * (threeQuarters - quarter);
  return {*std::ranges::lower_bound(sorted, quarter - reach),
          *(std::ranges::upper_bound(sorted, threeQuarters + reach) - 1)};
}

}  // namespace

TiffRangeFinder::TiffRangeFinder(const TiffLayout& layout, Size size) : layout_(layout) {
  const std::size_t count = static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height) *
                            static_cast<std::size_t>(layout.colourSamples);
  // Odd, so that it does not go along with the columns or the channels.
  every_ = count / sampleSize / 2 * 2 + 1;
  sample_.reserve(count / every_ + 1);
}

void TiffRangeFinder::Add(std::span<const std::uint8_t* const> planes, std::size_t width) {
  const auto samples = static_cast<std::size_t>(layout_.samples);
  const auto colours = static_cast<std::size_t>(layout_.colourSamples);
  if (layout_.separate) {
    for (const std::uint8_t* plane : planes.first(std::min(colours, planes.size())))
      ForEachNumber(layout_.bits, plane, width, [&](std::size_t, double number) { AddNumber(number); });
    return;
  }
  ForEachNumber(layout_.bits, planes[0], width * samples, [&](std::size_t i, double number) {
    if (samples == colours || i % samples < colours) AddNumber(number);
  });
}

void TiffRangeFinder::AddNumber(double number) {
  if (!std::isfinite(number)) return;
  if (number != 0) ++(number > 0 && number <= 1 ? within_ : beyond_);
  if (++skipped_ < every_) return;
  skipped_ = 0;
  sample_.push_back(number);
}

TiffRange TiffRangeFinder::Range() {
  if (within_ >= beyond_ || sample_.empty()) return {};
  std::ranges::sort(sample_);
  TiffRange range = WithoutFarOnes(sample_);
  // Where half of all numbers are the same, the others say what is far.
  const double common = sample_[sample_.size() / 2];
  if (sample_[sample_.size() / 4] == sample_[sample_.size() * 3 / 4]) {
    std::erase(sample_, common);
    if (!sample_.empty()) range = WithoutFarOnes(sample_);
    range = {std::min(range.low, common), std::max(range.high, common)};
  }
  if (range.low == range.high) return {std::min(range.low, 0.0), std::max(range.high, 1.0)};
  return range;
}

}  // namespace lumidex
