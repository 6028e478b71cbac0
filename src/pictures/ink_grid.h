#pragma once
// What pictures in four inks look like: a function known at the points of a grid and interpolated between
// them.

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace lumidex {

class InkGrid {
 public:
  // Blue, green, red, 0 to 65535.
  using Colour = std::array<std::uint16_t, 3>;
  // Gives the colours of `count` points of four inks each, 0 to 65535.
  using Function = std::function<void(const std::uint16_t* inks, Colour* colours, std::size_t count)>;

  // Points along each axis. More would not stay in the processor's cache.
  static constexpr std::uint32_t side = 17;
  static constexpr std::size_t pointCount = std::size_t{side} * side * side * side;

  // Asks for the colours of all points.
  explicit InkGrid(const Function& function);

  // Opaque pixels for `count` times four bytes; `inks` and `words` may be the same place.
  void Convert(const std::uint8_t* inks, std::uint32_t* words, std::size_t count) const;

 private:
  struct Point {
    std::array<std::int16_t, 4> channels{};  // blue, green, red, alpha, in 128ths
  };

  std::vector<Point> points_;
  // Where a byte lies on each axis. The low half is the grid's point below, as an index into the points;
  // above it stand 16 bits with the way to the next point, and 16 with the share of it that the byte lies
  // behind.
  std::array<std::array<std::uint64_t, 256>, 4> places_{};
};

}  // namespace lumidex
