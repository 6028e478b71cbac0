#include "controls/web_browser.h"

#include "controls/field.h"

namespace lumidex {

std::optional<std::string> WebBrowser::ReadProperty(std::string_view name) {
  if (name == "Busy") return FieldText(Busy());
  if (name == "LocationName") return LocationName();
  return Control::ReadProperty(name);
}

int WebBrowser::Number() const {
  const std::string_view name = Name();
  return Argument(name, name.substr(0, name.find('('))).value_or(0);
}

}  // namespace lumidex
