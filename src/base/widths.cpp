#include "base/widths.h"

#include <cmath>
#include <limits>

#include "base/run_time_error.h"

namespace lumidex {
namespace {

template <class Int>
Int Narrow(std::int64_t value) {
  if (value < std::numeric_limits<Int>::min() || value > std::numeric_limits<Int>::max()) {
    throw RunTimeError(ErrorNumber::Overflow);
  }
  return static_cast<Int>(value);
}

template <class Int>
Int Round(double value) {
  // Not a number, and anything beyond 64 bits, would be undefined in the cast below.
  if (!(std::fabs(value) < 9.0e18)) throw RunTimeError(ErrorNumber::Overflow);
  const double below = std::floor(value);
  const double rest = value - below;
  auto whole = static_cast<std::int64_t>(below);
  const bool odd = whole % 2 != 0;
  if (rest > 0.5 || (rest == 0.5 && odd)) ++whole;
  return Narrow<Int>(whole);
}

}  // namespace

std::int16_t ToInt16(double value) {
  return Round<std::int16_t>(value);
}
std::int32_t ToInt32(double value) {
  return Round<std::int32_t>(value);
}
std::int16_t ToInt16(std::int64_t value) {
  return Narrow<std::int16_t>(value);
}
std::int32_t ToInt32(std::int64_t value) {
  return Narrow<std::int32_t>(value);
}

}  // namespace lumidex
