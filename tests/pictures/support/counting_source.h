#pragma once
// A file that counts what is read of it.

#include <cstdint>
#include <utility>
#include <vector>

#include "pictures/picture_data.h"

namespace lumidex {

class CountingSource final : public ByteSource {
 public:
  explicit CountingSource(std::vector<std::uint8_t> bytes) : file_(std::move(bytes)) {}
  std::uint64_t Size() const override { return file_.Size(); }
  std::size_t ReadAt(std::uint64_t offset, std::span<std::uint8_t> into) const override {
    const std::size_t count = file_.ReadAt(offset, into);
    ++reads;
    bytesRead += count;
    return count;
  }

  mutable int reads = 0;
  mutable std::size_t bytesRead = 0;

 private:
  MemorySource file_;
};

}  // namespace lumidex
