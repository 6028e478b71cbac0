#pragma once
// The counters of one scan. A counter that has reached the end of its width stays there.

#include <array>
#include <cstdint>
#include <string>

#include "forms/file_type_table.h"

namespace lumidex {

struct ScanCounts {
  // By file type, 1 to FileTypeCount.
  std::array<std::int16_t, FileTypeCount + 1> types{};
  // Depths of 2, 4, 8, 16 and 24 bits, and all others.
  std::array<std::int16_t, 5> depths{};
  std::int16_t otherDepths = 0;
  // Sizes up to 100000, 200000, 300000 and 400000 bytes, and beyond; and of exactly 0.
  std::array<std::int16_t, 5> sizes{};
  std::int16_t emptyFiles = 0;
  std::int32_t totalBytes = 0;

  // True for the depths that have a counter of their own.
  bool CountDepth(float bitsPerPixel);
  void CountSize(std::int32_t bytes);
  // By the last four characters of the path without the blanks around it; others are of no type.
  void CountType(const std::string& path);

  // The sums are at 16 bits too, and raise Overflow.
  std::int16_t TypeTotal() const;
  std::int16_t DepthTotal() const;
};

}  // namespace lumidex
