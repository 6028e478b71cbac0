#include "pictures/byte_pixels.h"

#include <bit>
#include <cstring>

namespace lumidex {
namespace {

constexpr std::uint32_t opaque = 0xFF000000U;

std::uint32_t Join(std::uint8_t high, std::uint8_t middle, std::uint8_t low) {
  return opaque | std::uint32_t{high} << 16 | std::uint32_t{middle} << 8 | low;
}

// Four bytes at once wherever a fourth one follows.
template <class Four, class Three>
void JoinAll(Bytes bytes, std::span<std::uint32_t> row, Four four, Three three) {
  const std::size_t count = bytes.size() / 3;
  std::size_t x = 0;
  if constexpr (std::endian::native == std::endian::little) {
    for (; 3 * x + 4 <= bytes.size() && x < count; ++x) {
      std::uint32_t word;
      std::memcpy(&word, bytes.data() + 3 * x, sizeof word);
      row[x] = opaque | four(word);
    }
  }
  for (; x < count; ++x) row[x] = three(bytes.data() + 3 * x);
}

}  // namespace

void JoinRgb(Bytes bytes, std::span<std::uint32_t> row) {
  JoinAll(
      bytes, row, [](std::uint32_t word) { return __builtin_bswap32(word) >> 8; },
      [](const std::uint8_t* rgb) { return Join(rgb[0], rgb[1], rgb[2]); });
}

void JoinBgr(Bytes bytes, std::span<std::uint32_t> row) {
  JoinAll(
      bytes, row, [](std::uint32_t word) { return word; },
      [](const std::uint8_t* bgr) { return Join(bgr[2], bgr[1], bgr[0]); });
}

}  // namespace lumidex
