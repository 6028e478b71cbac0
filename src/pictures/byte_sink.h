#pragma once
// Where writers of picture files put their bytes, a block at a time, so that no file is held whole in memory.

#include <cstdint>
#include <span>
#include <string_view>

namespace lumidex {

class ByteSink {
 public:
  virtual ~ByteSink() = default;
  // Takes all of them or raises what the medium raises: DiskFull, PathFileAccess, OutOfMemory.
  virtual void Write(std::span<const std::uint8_t> bytes) = 0;
  void WriteText(std::string_view text) {
    Write({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
  }
};

}  // namespace lumidex
