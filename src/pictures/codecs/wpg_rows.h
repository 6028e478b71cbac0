#pragma once
// The two run-length codes of WordPerfect graphics, each given out row by row.

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "pictures/byte_reader.h"

namespace lumidex {

// Version 1: runs and literals of bytes, and whole rows repeated.
class Wpg1Rows {
 public:
  explicit Wpg1Rows(ByteReader from) : from_(from) {}

  // Unpacks the next row over the one before it, which `row` must still hold (zeros before the first).
  // False when the input ended, or made no sense, before the row was whole.
  bool Next(std::span<std::uint8_t> row);

 private:
  ByteReader from_;
  unsigned repeats_ = 0;  // rows like the last one still to come
  std::size_t left_ = 0;  // bytes the current run still gives
  bool copies_ = false;
  std::uint8_t value_ = 0;
};

// Version 2: runs of elements of 1 to 8 bytes, rows repeated, and rows stored as differences.
class Wpg2Rows {
 public:
  explicit Wpg2Rows(ByteReader from) : from_(from) {}

  // As above.
  bool Next(std::span<std::uint8_t> row);

 private:
  // Interprets one code; false at the end of the input or where the code may not stand.
  bool ReadCode(bool atRowStart);
  // Writes the next bytes of the current run, which has at least that many.
  bool Put(std::span<std::uint8_t> target);

  ByteReader from_;
  unsigned repeats_ = 0;
  std::size_t left_ = 0;  // bytes, not elements
  bool copies_ = false;
  bool differs_ = false;  // the current row is stored as its difference to the one before
  std::size_t elementSize_ = 1;
  std::array<std::uint8_t, 8> element_{};  // the last one, or the one that is repeated
  std::size_t place_ = 0;                  // in the element
  std::vector<std::uint8_t> before_;
};

}  // namespace lumidex
