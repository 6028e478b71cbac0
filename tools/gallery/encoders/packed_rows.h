#pragma once
// Rows of palette indices packed into bits or bit planes, and PackBits, as the older formats store them.

#include <cstdint>
#include <span>
#include <vector>

namespace lumidex {

// `bits` (1, 2, 4 or 8) a pixel, the first pixel highest, the last byte filled up with zeros.
std::vector<std::uint8_t> PackRow(std::span<const std::uint8_t> row, int bits);
// Bit `plane` of each index, packed as above.
std::vector<std::uint8_t> PackPlane(std::span<const std::uint8_t> row, int plane);
// The length of the run of equal bytes that begins at `at`, `most` at the most.
std::size_t RunLength(std::span<const std::uint8_t> bytes, std::size_t at, std::size_t most);
// The length of the stretch from `at` on in which no run of `worthARun` begins, 1 at the least and `most` at
// the most.
std::size_t CopyLength(std::span<const std::uint8_t> bytes, std::size_t at, std::size_t most,
                       std::size_t worthARun);
// Copies of up to 128 bytes and runs of 3 to 128.
std::vector<std::uint8_t> EncodePackBits(std::span<const std::uint8_t> bytes);

}  // namespace lumidex
