#pragma once
// Puts numbers into a growing block of bytes, low byte first (Le) or high byte first (Be).

#include <cstdint>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace lumidex {

class ByteWriter {
 public:
  std::size_t Size() const { return bytes_.size(); }
  // The bytes written so far; the writer is empty afterwards.
  std::vector<std::uint8_t> Take() { return std::exchange(bytes_, {}); }

  void U8(std::uint32_t value) { bytes_.push_back(static_cast<std::uint8_t>(value)); }
  void U16Le(std::uint32_t value) {
    U8(value);
    U8(value >> 8);
  }
  void U16Be(std::uint32_t value) {
    U8(value >> 8);
    U8(value);
  }
  void U32Le(std::uint32_t value) {
    U16Le(value);
    U16Le(value >> 16);
  }
  void U32Be(std::uint32_t value) {
    U16Be(value >> 16);
    U16Be(value);
  }
  void Append(std::span<const std::uint8_t> bytes) {
    bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
  }
  void Append(std::string_view text) { bytes_.insert(bytes_.end(), text.begin(), text.end()); }
  void Zeros(std::size_t count) { bytes_.insert(bytes_.end(), count, 0); }
  // Fills with zeros up to a multiple of `unit`.
  void PadTo(std::size_t unit) { Zeros((unit - Size() % unit) % unit); }

 private:
  std::vector<std::uint8_t> bytes_;
};

}  // namespace lumidex
