#pragma once
// Brings one line of pixels to another length: area average where it gets shorter, bilinear where it gets
// longer.

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "pictures/pixels.h"

namespace lumidex {

// Lines hold four numbers a pixel, blue, green, red and alpha, each 256 times as large as in a pixel; colours
// of straight alpha are weighed by it.
void WeighChannels(std::span<const std::uint32_t> row, PixelFormat format, std::span<std::uint16_t> line);

class LineScaler {
 public:
  // Both lengths are at least 1.
  LineScaler(int from, int to, PixelFormat format);

  // `row` gets pixels of the format.
  void Write(std::span<const std::uint16_t> line, std::span<std::uint32_t> row) const;

 private:
  // The pixels that make up one of the row: a share of the first and of the last, and all of those between,
  // which count `between_` each.
  struct Tap {
    std::uint32_t first = 0, last = 0;
    float firstShare = 0, lastShare = 0;
  };
  // The same for four neighbours at once, without a branch: each one's share in 65536ths. Made where no more
  // are needed for any pixel and the processor has instructions for it; then there are no taps.
  struct Four {
    std::uint32_t first = 0;
    std::array<std::uint16_t, 4> shares{};
  };

  static Tap AverageTap(int i, int from, int to);
  static Tap BetweenTap(int i, int from, int to);
  Four FourOf(const Tap& tap, int from) const;
  void WriteFours(std::span<const std::uint16_t> line, std::span<std::uint32_t> row) const;

  std::vector<Tap> taps_;
  std::vector<Four> fours_;
  float between_ = 0;
  bool straightAlpha_;
};

}  // namespace lumidex
