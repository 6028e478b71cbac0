#include "pictures/line_scaler.h"

#include <algorithm>
#include <array>

#include "pictures/word_blocks.h"

namespace lumidex {
namespace {

constexpr int alphaLane = 3;

// What a number of a line counts in a pixel.
constexpr double unit = 1.0 / 256;

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

// The numbers of two neighbours, each pixel's times a share of its own.
__m128i TwoShares(const std::uint16_t* line, __m128i shares) {
  return _mm_mulhi_epu16(_mm_loadu_si128(reinterpret_cast<const __m128i*>(line)), shares);
}
// Four neighbours with their shares, added up two by two: the first with the third, the second with the
// fourth.
__m128i FourShares(const std::uint16_t* line, const std::uint16_t* shares) {
  const __m128i four = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(shares));
  const __m128i twice = _mm_unpacklo_epi16(four, four);
  return _mm_add_epi16(TwoShares(line, _mm_shuffle_epi32(twice, _MM_SHUFFLE(1, 1, 0, 0))),
                       TwoShares(line + 8, _mm_shuffle_epi32(twice, _MM_SHUFFLE(3, 3, 2, 2))));
}
// Two pixels of such sums, as numbers of a pixel.
__m128i TwoPixels(__m128i left, __m128i right) {
  // Half of a number, and half of what four products lose behind the point.
  const __m128i rounding = _mm_set1_epi16(128 + 2);
  const __m128i sums = _mm_add_epi16(_mm_unpacklo_epi64(left, right), _mm_unpackhi_epi64(left, right));
  return _mm_srli_epi16(_mm_add_epi16(sums, rounding), 8);
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

LineScaler::LineScaler(int from, int to, PixelFormat format) : straightAlpha_(format == PixelFormat::Argb) {
  const double ratio = static_cast<double>(from) / to;
  if (ratio >= 1) between_ = static_cast<float>(unit / ratio);
  const bool inFours = LUMIDEX_WORD_BLOCKS && ratio <= 3 && from >= 4 && !straightAlpha_;
  if (inFours) {
    fours_.reserve(static_cast<std::size_t>(to));
  } else {
    taps_.reserve(static_cast<std::size_t>(to));
  }
  for (int i = 0; i < to; ++i) {
    const Tap tap = ratio >= 1 ? AverageTap(i, from, to) : BetweenTap(i, from, to);
    if (inFours) {
      fours_.push_back(FourOf(tap, from));
    } else {
      taps_.push_back(tap);
    }
  }
}

// In whole numbers, so that no pixel is touched of which nothing is seen.
LineScaler::Tap LineScaler::AverageTap(int i, int from, int to) {
  const std::int64_t begin = std::int64_t{i} * from, end = begin + from;
  Tap tap{static_cast<std::uint32_t>(begin / to), static_cast<std::uint32_t>((end - 1) / to)};
  const auto share = [&](std::int64_t part) {
    return static_cast<float>(unit * static_cast<double>(part) / from);
  };
  if (tap.last == tap.first) {
    tap.firstShare = static_cast<float>(unit);
  } else {
    tap.firstShare = share(to - begin % to);
    tap.lastShare = share((end - 1) % to + 1);
  }
  return tap;
}

LineScaler::Tap LineScaler::BetweenTap(int i, int from, int to) {
  const double centre = std::clamp((i + 0.5) * from / to - 0.5, 0.0, from - 1.0);
  Tap tap{static_cast<std::uint32_t>(std::min(static_cast<int>(centre), std::max(0, from - 2)))};
  tap.last = from > 1 ? tap.first + 1 : tap.first;
  tap.lastShare = static_cast<float>(unit * (centre - tap.first));
  tap.firstShare = static_cast<float>(unit) - tap.lastShare;
  return tap;
}

LineScaler::Four LineScaler::FourOf(const Tap& tap, int from) const {
  Four four{std::min(tap.first, static_cast<std::uint32_t>(from - 4))};
  std::array<float, 4> shares{};
  for (std::uint32_t pixel = tap.first + 1; pixel < tap.last; ++pixel) shares[pixel - four.first] = between_;
  shares[tap.first - four.first] = tap.firstShare;
  shares[tap.last - four.first] += tap.lastShare;
  constexpr double whole = 65536;
  std::ranges::transform(shares, four.shares.begin(), [](float share) {
    return static_cast<std::uint16_t>(std::min(share / unit * whole + 0.5, whole - 1));
  });
  return four;
}

void LineScaler::Write(std::span<const std::uint16_t> line, std::span<std::uint32_t> row) const {
  WriteFours(line, row);
  for (std::size_t x = 0; x < taps_.size(); ++x) {
    const Tap& tap = taps_[x];
    Channels sum =
        Load(line.data(), tap.first) * tap.firstShare + Load(line.data(), tap.last) * tap.lastShare;
    if (tap.last > tap.first + 1) sum += Sum(line.data(), tap.first + 1, tap.last) * between_;
    row[x] = Word(straightAlpha_ ? Unweighed(sum) : sum);
  }
}

#if LUMIDEX_WORD_BLOCKS

void LineScaler::WriteFours(std::span<const std::uint16_t> line, std::span<std::uint32_t> row) const {
  const auto sums = [&](std::size_t x) {
    const Four& four = fours_[x];
    return FourShares(line.data() + std::size_t{four.first} * 4, four.shares.data());
  };
  std::size_t x = 0;
  for (; x + 4 <= fours_.size(); x += 4) {
    const __m128i left = TwoPixels(sums(x), sums(x + 1)), right = TwoPixels(sums(x + 2), sums(x + 3));
    StoreBlock(row.data() + x, _mm_packus_epi16(left, right));
  }
  for (; x < fours_.size(); ++x) {
    const __m128i pixel = TwoPixels(sums(x), _mm_setzero_si128());
    row[x] = static_cast<std::uint32_t>(_mm_cvtsi128_si32(_mm_packus_epi16(pixel, pixel)));
  }
}

#else

void LineScaler::WriteFours(std::span<const std::uint16_t>, std::span<std::uint32_t>) const {}

#endif

}  // namespace lumidex
