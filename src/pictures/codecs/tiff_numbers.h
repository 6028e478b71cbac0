#pragma once
// Numbers with a point as TIFF files hold them, of 16, 32 or 64 bits.

#include <bit>
#include <cstdint>
#include <cstring>

namespace lumidex {

// The number at place `index`; what the file's order of bytes was is settled before.
template <class Number>
Number LoadNumber(const std::uint8_t* bytes, std::size_t index) {
  Number number;
  std::memcpy(&number, bytes + index * sizeof(Number), sizeof(Number));
  return number;
}

// Half-precision numbers: 1 sign, 5 exponent, 10 fraction bits. The same bits in a float's places count from
// another exponent, which one multiplication makes up for.
inline double FromHalf(std::uint16_t half) {
  const std::uint32_t sign = static_cast<std::uint32_t>(half & 0x8000) << 16;
  const std::uint32_t rest = static_cast<std::uint32_t>(half & 0x7FFF) << 13;
  return static_cast<double>(std::bit_cast<float>(sign | rest) * 0x1p112F);
}

// Runs `visit(index, number)` over numbers of so many bits.
template <class Visit>
void ForEachNumber(int bits, const std::uint8_t* bytes, std::size_t count, Visit visit) {
  switch (bits) {
    case 16:
      for (std::size_t i = 0; i < count; ++i) visit(i, FromHalf(LoadNumber<std::uint16_t>(bytes, i)));
      break;
    case 32:
      for (std::size_t i = 0; i < count; ++i) visit(i, static_cast<double>(LoadNumber<float>(bytes, i)));
      break;
    default:
      for (std::size_t i = 0; i < count; ++i) visit(i, LoadNumber<double>(bytes, i));
      break;
  }
}

}  // namespace lumidex
