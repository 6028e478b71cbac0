#pragma once
// Repeatable chance for stars, trees and glints: the same seed draws the same picture everywhere.

#include <cstdint>
#include <random>

namespace lumidex {

class Scatter {
 public:
  explicit Scatter(std::uint32_t seed) : engine_(seed) {}
  // Evenly between 0 and `limit`.
  double Below(double limit) { return limit * (static_cast<double>(engine_()) / 4294967296.0); }

 private:
  std::mt19937 engine_;
};

}  // namespace lumidex
