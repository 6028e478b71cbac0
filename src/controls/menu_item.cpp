#include "controls/menu_item.h"

namespace lumidex {

std::optional<std::string> MenuItem::ReadProperty(std::string_view name) {
  if (name == "Shortcut") return shortcut_ ? std::string("Ctrl+") + shortcut_ : std::string();
  return Control::ReadProperty(name);
}

bool MenuItem::IsReachable() const {
  return Enabled && Visible && (!parent_ || parent_->IsReachable());
}

}  // namespace lumidex
