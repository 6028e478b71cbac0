#include "pictures/scaling.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace lumidex {
namespace {

// The source pixels that make up one destination pixel, and the share of each; the shares sum to 1.
struct Tap {
  int first = 0;
  std::vector<float> shares;
};

std::vector<Tap> MakeTaps(int from, int to) {
  std::vector<Tap> taps(static_cast<std::size_t>(to));
  const double ratio = static_cast<double>(from) / to;
  for (int i = 0; i < to; ++i) {
    Tap& tap = taps[static_cast<std::size_t>(i)];
    if (ratio > 1.0) {
      const double begin = i * ratio, end = std::min<double>(from, (i + 1) * ratio);
      tap.first = static_cast<int>(begin);
      for (int j = tap.first; j < end && j < from; ++j) {
        const double covered = std::min(end, j + 1.0) - std::max<double>(begin, j);
        tap.shares.push_back(static_cast<float>(covered / (end - begin)));
      }
    } else {
      const double centre = std::clamp((i + 0.5) * ratio - 0.5, 0.0, from - 1.0);
      tap.first = std::min(static_cast<int>(centre), std::max(0, from - 2));
      const auto share = static_cast<float>(centre - tap.first);
      tap.shares.push_back(1.0F - share);
      if (from > 1) tap.shares.push_back(share);
    }
  }
  return taps;
}

using Channels = std::array<float, 4>;  // blue, green, red weighed by alpha, then alpha

// One source row, brought to the destination's width.
void ScaleRow(std::span<const std::uint32_t> row, const std::vector<Tap>& taps, bool straightAlpha,
              std::vector<Channels>& out) {
  for (std::size_t x = 0; x < taps.size(); ++x) {
    Channels sum{};
    const std::uint32_t* pixel = row.data() + taps[x].first;
    for (const float share : taps[x].shares) {
      const auto alpha = static_cast<float>(*pixel >> 24);
      const float weight = straightAlpha ? share * alpha * (1.0F / 255.0F) : share;
      sum[0] += weight * static_cast<float>(*pixel & 0xFFU);
      sum[1] += weight * static_cast<float>(*pixel >> 8 & 0xFFU);
      sum[2] += weight * static_cast<float>(*pixel >> 16 & 0xFFU);
      sum[3] += share * alpha;
      ++pixel;
    }
    out[x] = sum;
  }
}

std::uint32_t Pack(const Channels& sum, bool straightAlpha) {
  const float back = straightAlpha && sum[3] > 0.0F ? 255.0F / sum[3] : 1.0F;
  const auto byte = [](float value) {
    return static_cast<std::uint32_t>(std::clamp(value + 0.5F, 0.0F, 255.0F));
  };
  return byte(sum[3]) << 24 | byte(sum[2] * back) << 16 | byte(sum[1] * back) << 8 | byte(sum[0] * back);
}

}  // namespace

Pixels Copy(const Pixels& pixels) {
  Pixels copy = Pixels::MakeUnfilled(pixels.GetSize(), pixels.Format());
  std::copy_n(pixels.Data(), pixels.ByteCount() / 4, copy.Data());
  return copy;
}

Pixels Scale(const Pixels& pixels, Size size) {
  if (size == pixels.GetSize()) return pixels;
  const bool straightAlpha = pixels.Format() == PixelFormat::Argb;
  Pixels scaled = Pixels::MakeUnfilled(size, pixels.Format());
  const std::vector<Tap> columns = MakeTaps(pixels.Width(), size.width);
  const std::vector<Tap> rows = MakeTaps(pixels.Height(), size.height);
  const auto width = static_cast<std::size_t>(size.width);
  // When enlarging, neighbouring destination rows share source rows: the last two are kept.
  std::array<std::vector<Channels>, 2> kept{std::vector<Channels>(width), std::vector<Channels>(width)};
  std::array<int, 2> keptRow{-1, -1};
  std::vector<Channels> sum(width);
  for (int y = 0; y < size.height; ++y) {
    const Tap& tap = rows[static_cast<std::size_t>(y)];
    std::ranges::fill(sum, Channels{});
    for (std::size_t i = 0; i < tap.shares.size(); ++i) {
      const int source = tap.first + static_cast<int>(i);
      const auto slot = static_cast<std::size_t>(source & 1);
      if (keptRow[slot] != source) {
        ScaleRow(pixels.Row(source), columns, straightAlpha, kept[slot]);
        keptRow[slot] = source;
      }
      const float share = tap.shares[i];
      for (std::size_t x = 0; x < width; ++x) {
        for (std::size_t c = 0; c < 4; ++c) sum[x][c] += share * kept[slot][x][c];
      }
    }
    std::ranges::transform(sum, scaled.Row(y).begin(),
                           [&](const Channels& channels) { return Pack(channels, straightAlpha); });
  }
  return scaled;
}

}  // namespace lumidex
