#pragma once
// The clock of the machine, in local time.

#include "ports/services.h"

namespace lumidex {

class QtClock final : public Clock {
 public:
  double TimeOfDay() const override;
  DateTime Now() const override;
};

}  // namespace lumidex
