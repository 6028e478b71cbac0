#include "pictures/ink_grid.h"

#include <algorithm>

#include "pictures/word_blocks.h"

namespace lumidex {
namespace {

constexpr int weightBits = 14, channelBits = 7;
constexpr int shift = weightBits + channelBits;

// The larger one first. Without a jump, which nothing could foresee.
void Order(std::uint32_t& a, std::uint32_t& b) {
  const std::uint32_t exchanged = (a ^ b) & (std::uint32_t{0} - (a < b ? 1U : 0U));
  a ^= exchanged;
  b ^= exchanged;
}

#if LUMIDEX_WORD_BLOCKS

// Two points, each with its weight.
__m128i Weighed(const void* a, std::uint32_t weightA, const void* b, std::uint32_t weightB) {
  const __m128i both = _mm_unpacklo_epi16(_mm_loadl_epi64(static_cast<const __m128i*>(a)),
                                          _mm_loadl_epi64(static_cast<const __m128i*>(b)));
  return _mm_madd_epi16(both, _mm_set1_epi32(static_cast<int>(weightA | weightB << 16)));
}

#endif

}  // namespace

InkGrid::InkGrid(const Function& function) : points_(pointCount) {
  std::uint32_t step = pointCount / side;
  for (auto& axis : places_) {
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
      const std::uint32_t place = byte * (side - 1);
      const std::uint32_t below = std::min(place / 255, side - 2);
      const std::uint32_t distance = (((place - below * 255) << weightBits) + 127) / 255;
      axis[byte] = below * step | std::uint64_t{distance << 16 | step} << 32;
    }
    step /= side;
  }
  // A line of points along the last axis at a time.
  std::array<std::uint16_t, std::size_t{4} * side> inks{};
  std::array<Colour, side> colours{};
  for (std::size_t first = 0; first < pointCount; first += side) {
    for (std::size_t i = 0; i < side; ++i) {
      std::size_t rest = first + i;
      for (std::size_t axis = 4; axis-- > 0; rest /= side)
        inks[i * 4 + axis] = static_cast<std::uint16_t>(rest % side * 65535 / (side - 1));
    }
    function(inks.data(), colours.data(), side);
    for (std::size_t i = 0; i < side; ++i) {
      constexpr std::uint32_t most = 255U << channelBits;
      auto& channels = points_[first + i].channels;
      for (std::size_t channel = 0; channel < 3; ++channel)
        channels[channel] = static_cast<std::int16_t>((colours[i][channel] * most + 32767) / 65535);
      channels[3] = most;
    }
  }
}

// The colour is that of the simplex which the place lies in: from the point below along the axes in the order
// of the distances, the longest first. That is five points of the sixteen around.
void InkGrid::Convert(const std::uint8_t* inks, std::uint32_t* words, std::size_t count) const {
  for (std::size_t x = 0; x < count; ++x, inks += 4) {
    const std::uint64_t places[] = {places_[0][inks[0]], places_[1][inks[1]], places_[2][inks[2]],
                                    places_[3][inks[3]]};
    const auto below = static_cast<std::uint32_t>(places[0] + places[1] + places[2] + places[3]);
    const auto reachOf = [&](int i) { return static_cast<std::uint32_t>(places[i] >> 32); };
    std::uint32_t reach[] = {reachOf(0), reachOf(1), reachOf(2), reachOf(3)};
    Order(reach[0], reach[1]);
    Order(reach[2], reach[3]);
    Order(reach[0], reach[2]);
    Order(reach[1], reach[3]);
    Order(reach[1], reach[2]);
    const Point* const first = points_.data() + below;
    const Point* const second = first + (reach[0] & 0xFFFF);
    const Point* const third = second + (reach[1] & 0xFFFF);
    const Point* const fourth = third + (reach[2] & 0xFFFF);
    const Point* const fifth = fourth + (reach[3] & 0xFFFF);
    const std::uint32_t a = reach[0] >> 16, b = reach[1] >> 16, c = reach[2] >> 16, d = reach[3] >> 16;
    constexpr std::uint32_t all = 1U << weightBits, half = 1U << (shift - 1);
#if LUMIDEX_WORD_BLOCKS
    __m128i sum = _mm_add_epi32(Weighed(first, all - a, second, a - b), Weighed(third, b - c, fourth, c - d));
    sum = _mm_add_epi32(sum, Weighed(fifth, d, fifth, 0));
    sum = _mm_srai_epi32(_mm_add_epi32(sum, _mm_set1_epi32(half)), shift);
    const __m128i shorts = _mm_packs_epi32(sum, sum);
    words[x] = static_cast<std::uint32_t>(_mm_cvtsi128_si32(_mm_packus_epi16(shorts, shorts)));
#else
    std::uint32_t word = 0;
    for (std::size_t i = 0; i < 4; ++i) {
      const auto share = [i](const Point* point, std::uint32_t weight) {
        return static_cast<std::uint32_t>(point->channels[i]) * weight;
      };
      const std::uint32_t sum = share(first, all - a) + share(second, a - b) + share(third, b - c) +
                                share(fourth, c - d) + share(fifth, d);
      word |= (sum + half) >> shift << 8 * i;
    }
    words[x] = word;
#endif
  }
}

}  // namespace lumidex
