#pragma once
// Short looks at any place of a file, for formats whose header facts lie in records one behind the other.

#include <vector>

#include "pictures/picture_data.h"

namespace lumidex {

class FileWindow {
 public:
  explicit FileWindow(const PictureData& data) : data_(data) {}

  // Up to `count` bytes (at most HeadSize) from `offset`, fewer at the end of the file; valid until the next
  // call. Costs a read only when they lie outside of what was read last.
  Bytes At(std::uint64_t offset, std::size_t count);

 private:
  const PictureData& data_;
  std::uint64_t start_ = 0;
  std::vector<std::uint8_t> block_;
};

}  // namespace lumidex
