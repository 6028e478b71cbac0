#pragma once
// Puts numbers into a growing block of bytes, low byte first (Le) or high byte first (Be).

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace lumidex {

class ByteWriter {
 public:
  std::size_t Size() const { return bytes_.size(); }
  const std::vector<std::uint8_t>& Bytes() const { return bytes_; }
  // The bytes written so far; the writer is empty afterwards.
  std::vector<std::uint8_t> Take() { return std::exchange(bytes_, {}); }

  ByteWriter& U8(std::uint32_t value) {
    bytes_.push_back(static_cast<std::uint8_t>(value));
    return *this;
  }
  ByteWriter& U16Le(std::uint32_t value) { return U8(value).U8(value >> 8); }
  ByteWriter& U16Be(std::uint32_t value) { return U8(value >> 8).U8(value); }
  ByteWriter& U32Le(std::uint32_t value) { return U16Le(value).U16Le(value >> 16); }
  ByteWriter& U32Be(std::uint32_t value) { return U16Be(value >> 16).U16Be(value); }
  ByteWriter& Append(std::span<const std::uint8_t> bytes) {
    bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
    return *this;
  }
  ByteWriter& Append(std::string_view text) {
    bytes_.insert(bytes_.end(), text.begin(), text.end());
    return *this;
  }
  ByteWriter& Fill(std::size_t count, std::uint32_t value = 0) {
    bytes_.insert(bytes_.end(), count, static_cast<std::uint8_t>(value));
    return *this;
  }
  ByteWriter& Zeros(std::size_t count) { return Fill(count); }
  // Fills with zeros up to a multiple of `unit`.
  ByteWriter& PadTo(std::size_t unit) { return Zeros((unit - Size() % unit) % unit); }

  // Short forms for tests, which list bytes.
  ByteWriter& Text(std::string_view text) { return Append(text); }
  ByteWriter& Add(const std::vector<std::uint8_t>& bytes) { return Append(std::span(bytes)); }
  ByteWriter& Add(std::initializer_list<std::uint32_t> values) {
    for (const std::uint32_t value : values) U8(value);
    return *this;
  }

 private:
  std::vector<std::uint8_t> bytes_;
};

}  // namespace lumidex
