#pragma once
// Unpacks PackBits (also called ByteRun1), the run-length code of MacPaint, ILBM and others.
//
// A count byte n up to 127 stands before n + 1 bytes to copy, one from 129 on before a byte to repeat
// 257 - n times; 128 means nothing.

#include <cstddef>
#include <cstdint>
#include <span>

#include "pictures/byte_reader.h"

namespace lumidex {

// Gives the unpacked bytes piece by piece. A run may go on from one piece into the next, since some writers
// let runs cross rows.
class PackBits {
 public:
  explicit PackBits(ByteReader from) : from_(from) {}

  // Fills `into` and returns how many bytes there were: fewer than asked only at the end of the input.
  std::size_t Read(std::span<std::uint8_t> into);
  // What has been consumed so far, to go on behind it.
  std::size_t Position() const { return from_.Position(); }

 private:
  ByteReader from_;
  std::size_t left_ = 0;  // bytes the current run still gives
  bool copies_ = false;   // the current run is bytes to copy, else `value_` repeated
  std::uint8_t value_ = 0;
};

}  // namespace lumidex
