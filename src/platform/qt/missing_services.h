#pragma once
// The services that this front end does not offer, and says so.

#include "base/run_time_error.h"
#include "ports/services.h"

namespace lumidex {

// No web pages.
class NoBrowser final : public Browser {
 public:
  void Navigate(int, const std::string&) override { throw RunTimeError(ErrorNumber::AutomationError); }
  bool Busy(int) const override { throw RunTimeError(ErrorNumber::AutomationError); }
  std::string LocationName(int) const override { throw RunTimeError(ErrorNumber::AutomationError); }
};

}  // namespace lumidex
