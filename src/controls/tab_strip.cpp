#include "controls/tab_strip.h"

#include "base/run_time_error.h"

namespace lumidex {

void TabStrip::RefuseOthers(Element& owner, const int& page) {
  const auto count = static_cast<TabStrip&>(owner).captions_.size();
  if (page < 0 || page >= static_cast<int>(count)) throw RunTimeError(ErrorNumber::InvalidPropertyValue);
}

}  // namespace lumidex
