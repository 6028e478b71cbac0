#pragma once
// Collects what a writer of files writes.

#include <vector>

#include "pictures/byte_sink.h"

namespace lumidex {

class CollectingSink final : public ByteSink {
 public:
  void Write(std::span<const std::uint8_t> part) override {
    bytes.insert(bytes.end(), part.begin(), part.end());
  }
  std::vector<std::uint8_t> bytes;
};

}  // namespace lumidex
