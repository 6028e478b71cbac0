#include "pictures/filters.h"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <utility>

#include "base/run_time_error.h"
#include "pictures/in_parts.h"
#include "pictures/word_blocks.h"

namespace lumidex {
namespace {

constexpr std::uint32_t alphaMask = 0xFF000000U;

void CheckAmount(int amount) {
  if (amount < -100 || amount > 100) throw RunTimeError(ErrorNumber::InvalidCall);
}

// Adds to the channels of a word and cuts off: the bytes of `plus` are added and those of `minus` taken away.
struct AddChannels {
  std::uint32_t plus = 0, minus = 0;

  AddChannels(int red, int green, int blue) {
    for (const int amount : {red, green, blue}) {
      CheckAmount(amount);
      const auto by = static_cast<std::uint32_t>((std::abs(amount) * 255 + 50) / 100);
      plus = plus << 8 | (amount > 0 ? by : 0);
      minus = minus << 8 | (amount < 0 ? by : 0);
    }
  }

  std::uint32_t operator()(std::uint32_t word) const {
    std::uint32_t sum = word & alphaMask;
    for (const int shift : {0, 8, 16}) {
      const auto part = [shift](std::uint32_t whole) { return static_cast<int>(whole >> shift & 255); };
      const int channel = std::clamp(part(word) + part(plus) - part(minus), 0, 255);
      sum |= static_cast<std::uint32_t>(channel) << shift;
    }
    return sum;
  }
#if LUMIDEX_WORD_BLOCKS
  WordBlock operator()(WordBlock words) const {
    const WordBlock added = _mm_adds_epu8(words, _mm_set1_epi32(std::bit_cast<int>(plus)));
    return _mm_subs_epu8(added, _mm_set1_epi32(std::bit_cast<int>(minus)));
  }
#endif
};

// Stretches the channels about their middle in 16-bit numbers. A channel c is counted from the middle in
// halves, 2c - 255, so that no step rounds but the last; the factor has 9 binary places.
struct Stretch {
  std::int16_t factor = 512;

  explicit Stretch(int amount) {
    CheckAmount(amount);
    constexpr int most = 32767;
    factor = static_cast<std::int16_t>(amount <= 0 ? (100 + amount) * 512 / 100
                                                   : std::min(most, 100 * 512 / std::max(1, 100 - amount)));
  }

  std::uint32_t operator()(std::uint32_t word) const {
    std::uint32_t stretched = word & alphaMask;
    for (const int shift : {0, 8, 16}) {
      const int halves = 2 * static_cast<int>(word >> shift & 255) - 255;
      const int channel = std::clamp((halves * 64 * factor >> 16) + 128, 0, 255);
      stretched |= static_cast<std::uint32_t>(channel) << shift;
    }
    return stretched;
  }
#if LUMIDEX_WORD_BLOCKS
  WordBlock operator()(WordBlock words) const {
    const WordBlock alpha = _mm_set1_epi32(std::bit_cast<int>(alphaMask));
    const WordBlock stretched = _mm_packus_epi16(OfChannels(_mm_unpacklo_epi8(words, _mm_setzero_si128())),
                                                 OfChannels(_mm_unpackhi_epi8(words, _mm_setzero_si128())));
    return _mm_or_si128(_mm_and_si128(alpha, words), _mm_andnot_si128(alpha, stretched));
  }

 private:
  WordBlock OfChannels(WordBlock channels) const {
    // (2c - 255) * 64
    const WordBlock halves = _mm_sub_epi16(_mm_slli_epi16(channels, 7), _mm_set1_epi16(255 * 64));
    return _mm_add_epi16(_mm_mulhi_epi16(halves, _mm_set1_epi16(factor)), _mm_set1_epi16(128));
  }
#endif
};

template <class Change>
void ChangeAll(Pixels& pixels, Change change) {
  // A thread of its own pays from so many pixels on.
  constexpr std::size_t least = 1 << 20;
  Pixels changed = pixels.IsShared() ? Pixels::MakeUnfilled(pixels.GetSize(), pixels.Format()) : pixels;
  InParts(pixels.ByteCount() / 4, least, [&](std::size_t begin, std::size_t end) {
    TransformWords(pixels.Data() + begin, changed.Data() + begin, end - begin, change);
  });
  pixels = std::move(changed);
}

}  // namespace

void Brighten(Pixels& pixels, int amount) {
  BalanceColours(pixels, amount, amount, amount);
}

void ChangeContrast(Pixels& pixels, int amount) {
  ChangeAll(pixels, Stretch(amount));
}

void BalanceColours(Pixels& pixels, int red, int green, int blue) {
  ChangeAll(pixels, AddChannels(red, green, blue));
}

}  // namespace lumidex
