#pragma once
// Bounds how much a metafile may make the program draw: a short file can ask for hours of work. Counted in
// units, not by the clock, so the outcome is the same on every machine.

namespace lumidex::metafile {

class WorkBudget {
 public:
  // One unit is meant to be about a nanosecond; the costs charged are estimates.
  explicit WorkBudget(double units) : left_(units) {}

  // Takes `units` off; false when they are not there, and then the work must not be done.
  bool Spend(double units) {
    if (!(units <= left_)) return false;
    left_ -= units;
    return true;
  }

 private:
  double left_;
};

}  // namespace lumidex::metafile
