#include "controls/tab_strip.h"

#include "base/run_time_error.h"
#include "base/text.h"

namespace lumidex {

std::optional<std::string> TabStrip::ReadProperty(std::string_view name) {
  if (name == "Tabs") return Number(static_cast<std::int64_t>(captions_.size()));
  if (const auto page = Argument(name, "TabCaption")) {
    if (*page < 0 || *page >= static_cast<int>(captions_.size())) RaiseSubscript();
    return captions_[static_cast<std::size_t>(*page)];
  }
  return Control::ReadProperty(name);
}

void TabStrip::RefuseOthers(Element& owner, const int& page) {
  const auto count = static_cast<TabStrip&>(owner).captions_.size();
  if (page < 0 || page >= static_cast<int>(count)) throw RunTimeError(ErrorNumber::InvalidPropertyValue);
}

}  // namespace lumidex
