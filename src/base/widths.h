#pragma once
// Conversions to the program's integer widths: to the nearest integer, a half going to the even
// neighbour; what does not fit raises Overflow.

#include <cstdint>

namespace lumidex {

std::int16_t ToInt16(double value);
std::int32_t ToInt32(double value);

// Sums and differences at 16 and 32 bits are done in a wider type and brought back through these.
std::int16_t ToInt16(std::int64_t value);
std::int32_t ToInt32(std::int64_t value);
inline std::int16_t ToInt16(int value) {
  return ToInt16(static_cast<std::int64_t>(value));
}
inline std::int32_t ToInt32(int value) {
  return value;
}

}  // namespace lumidex
