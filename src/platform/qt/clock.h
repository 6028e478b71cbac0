#pragma once
// The clock of the machine, in local time.

#include "ports/services.h"

namespace lumidex {

class QtClock final : public Clock {
 public:
  double TimeOfDay() const override;
  DateTime Now() const override;
  DateTime LocalTime(std::int64_t secondsSince1970) const override;
};

}  // namespace lumidex
