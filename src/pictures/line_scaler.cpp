#include "pictures/line_scaler.h"

#include <algorithm>

#include "pictures/word_blocks.h"

namespace lumidex {
namespace {

constexpr int alphaLane = 3;

// The channels of one pixel, calculated together.
#if LUMIDEX_WORD_BLOCKS

using Channels = __m128;

__m128i LoadNumbers(const std::uint16_t* line, std::uint32_t pixel) {
  const auto* place = reinterpret_cast<const __m128i*>(line + std::size_t{pixel} * 4);
  return _mm_unpacklo_epi16(_mm_loadl_epi64(place), _mm_setzero_si128());
}
Channels Load(const std::uint16_t* line, std::uint32_t pixel) {
  return _mm_cvtepi32_ps(LoadNumbers(line, pixel));
}
// Of at least one pixel.
Channels Sum(const std::uint16_t* line, std::uint32_t pixel, std::uint32_t end) {
  __m128i sum = LoadNumbers(line, pixel);
  while (++pixel < end) sum = _mm_add_epi32(sum, LoadNumbers(line, pixel));
  return _mm_cvtepi32_ps(sum);
}
std::uint32_t Word(Channels channels) {
  const __m128i rounded = _mm_cvtps_epi32(channels);
  const __m128i shorts = _mm_packs_epi32(rounded, rounded);
  return static_cast<std::uint32_t>(_mm_cvtsi128_si32(_mm_packus_epi16(shorts, shorts)));
}

#else

using Channels = float __attribute__((vector_size(16)));

Channels Load(const std::uint16_t* line, std::uint32_t pixel) {
  Channels channels;
  for (int i = 0; i < 4; ++i) channels[i] = line[std::size_t{pixel} * 4 + static_cast<std::size_t>(i)];
  return channels;
}
Channels Sum(const std::uint16_t* line, std::uint32_t pixel, std::uint32_t end) {
  Channels sum = Load(line, pixel);
  while (++pixel < end) sum += Load(line, pixel);
  return sum;
}
std::uint32_t Word(Channels channels) {
  std::uint32_t word = 0;
  for (int i = 0; i < 4; ++i) word |= static_cast<std::uint32_t>(channels[i] + 0.5F) << 8 * i;
  return word;
}

#endif

// Colours come back out of their weight.
Channels Unweighed(Channels channels) {
  const float alpha = channels[alphaLane];
  const float most = 255, least = 0.5;
  if (alpha < least) return Channels{};
  for (int i = 0; i < alphaLane; ++i) channels[i] = std::min(channels[i] * (most / alpha), most);
  return channels;
}

}  // namespace

void WeighChannels(std::span<const std::uint32_t> row, PixelFormat format, std::span<std::uint16_t> line) {
  const bool straightAlpha = format == PixelFormat::Argb;
  for (std::size_t x = 0; x < row.size(); ++x) {
    const std::uint32_t alpha = row[x] >> 24;
    const std::uint32_t weight = straightAlpha ? alpha : 255;
    for (std::size_t i = 0; i < alphaLane; ++i)
      line[4 * x + i] = static_cast<std::uint16_t>((row[x] >> 8 * i & 255) * weight * 257 >> 8);
    line[4 * x + alphaLane] = static_cast<std::uint16_t>(alpha << 8);
  }
}

LineScaler::LineScaler(int from, int to, PixelFormat format)
    : taps_(static_cast<std::size_t>(to)), straightAlpha_(format == PixelFormat::Argb) {
  constexpr double unit = 1.0 / 256;
  const double ratio = static_cast<double>(from) / to;
  if (ratio >= 1) between_ = static_cast<float>(unit / ratio);
  for (int i = 0; i < to; ++i) {
    Tap& tap = taps_[static_cast<std::size_t>(i)];
    if (ratio >= 1) {
      // In whole numbers, so that no pixel is touched of which nothing is seen.
      const std::int64_t begin = std::int64_t{i} * from, end = begin + from;
      tap.first = static_cast<std::uint32_t>(begin / to);
      tap.last = static_cast<std::uint32_t>((end - 1) / to);
      const auto share = [&](std::int64_t part) {
        return static_cast<float>(unit * static_cast<double>(part) / from);
      };
      if (tap.last == tap.first) {
        tap.firstShare = static_cast<float>(unit);
      } else {
        tap.firstShare = share(to - begin % to);
        tap.lastShare = share((end - 1) % to + 1);
      }
    } else {
      const double centre = std::clamp((i + 0.5) * ratio - 0.5, 0.0, from - 1.0);
      tap.first = static_cast<std::uint32_t>(std::min(static_cast<int>(centre), std::max(0, from - 2)));
      tap.last = from > 1 ? tap.first + 1 : tap.first;
      tap.lastShare = static_cast<float>(unit * (centre - tap.first));
      tap.firstShare = static_cast<float>(unit) - tap.lastShare;
    }
  }
}

void LineScaler::Write(std::span<const std::uint16_t> line, std::span<std::uint32_t> row) const {
  for (std::size_t x = 0; x < taps_.size(); ++x) {
    const Tap& tap = taps_[x];
    Channels sum =
        Load(line.data(), tap.first) * tap.firstShare + Load(line.data(), tap.last) * tap.lastShare;
    if (tap.last > tap.first + 1) sum += Sum(line.data(), tap.first + 1, tap.last) * between_;
    row[x] = Word(straightAlpha_ ? Unweighed(sum) : sum);
  }
}

}  // namespace lumidex
