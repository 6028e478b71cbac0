#pragma once
// Bounds how much a metafile may make the program draw and hold: a short file can ask for hours of work and
// for more memory than there is. Counted in units, not by the clock, so the outcome is the same everywhere.

#include <cstddef>

namespace lumidex::metafile {

class WorkBudget {
 public:
  // One unit is meant to be about a nanosecond; the costs charged are estimates.
  explicit WorkBudget(double units) : left_(units) {}

  // Takes `units` off; false when they are not there, and then the work must not be done. Whoever does work
  // in proportion to something a record can ask for again and again asks before doing it.
  bool Spend(double units) { return Take(left_, units); }
  // The same for bytes that stay in memory until the drawing is done, as those of brushes.
  bool Keep(double bytes) { return Take(bytesLeft_, bytes); }

 private:
  static bool Take(double& left, double wanted) {
    if (!(wanted <= left)) return false;
    left -= wanted;
    return true;
  }

  double left_;
  double bytesLeft_ = 64.0 * (1 << 20);
};

// Reading a record of so many bytes and turning it into points.
constexpr double CostOfRecord(std::size_t bytes) {
  return 200 + 4 * static_cast<double>(bytes);
}

}  // namespace lumidex::metafile
