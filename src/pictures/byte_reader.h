#pragma once
// Reads numbers from bytes that nobody checked: past the end it answers 0 and remembers that it was cut.

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "pictures/picture_data.h"

namespace lumidex {

class ByteReader {
 public:
  explicit ByteReader(Bytes bytes) : bytes_(bytes) {}

  std::size_t Position() const { return position_; }
  std::size_t Remaining() const { return bytes_.size() - position_; }
  std::size_t Size() const { return bytes_.size(); }
  // True once anything was read, skipped or sought beyond the end.
  bool WasCut() const { return cut_; }
  bool AtEnd() const { return position_ == bytes_.size(); }

  std::uint8_t U8() {
    if (position_ >= bytes_.size()) {
      cut_ = true;
      return 0;
    }
    return bytes_[position_++];
  }
  std::uint16_t U16Le() {
    const unsigned a = U8(), b = U8();
    return static_cast<std::uint16_t>(a | b << 8);
  }
  std::uint16_t U16Be() {
    const unsigned a = U8(), b = U8();
    return static_cast<std::uint16_t>(a << 8 | b);
  }
  std::uint32_t U32Le() {
    const std::uint32_t a = U16Le(), b = U16Le();
    return a | b << 16;
  }
  std::uint32_t U32Be() {
    const std::uint32_t a = U16Be(), b = U16Be();
    return a << 16 | b;
  }
  std::int16_t S16Le() { return static_cast<std::int16_t>(U16Le()); }
  std::int16_t S16Be() { return static_cast<std::int16_t>(U16Be()); }
  std::int32_t S32Le() { return static_cast<std::int32_t>(U32Le()); }

  // The next `count` bytes, fewer at the end.
  Bytes Take(std::size_t count) {
    const std::size_t have = std::min(count, Remaining());
    cut_ = cut_ || have < count;
    const Bytes taken = bytes_.subspan(position_, have);
    position_ += have;
    return taken;
  }
  void Skip(std::size_t count) { Take(count); }
  void Seek(std::size_t position) {
    cut_ = cut_ || position > bytes_.size();
    position_ = std::min(position, bytes_.size());
  }
  // A reader of the next `count` bytes alone (fewer at the end); this one moves past them.
  ByteReader Sub(std::size_t count) { return ByteReader(Take(count)); }

 private:
  Bytes bytes_;
  std::size_t position_ = 0;
  bool cut_ = false;
};

}  // namespace lumidex
