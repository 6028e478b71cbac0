#include "controls/menu_item.h"

#include "base/text.h"

namespace lumidex {

std::string Shortcut::Text() const {
  if (code == 0) return {};
  constexpr int f1 = 112, f12 = 123;
  std::string text = control ? "Ctrl+" : "";
  if (shift) text += "Shift+";
  if (code >= f1 && code <= f12) return text + "F" + Number(code - f1 + 1);
  return text + static_cast<char>(code);
}

std::optional<std::string> MenuItem::ReadProperty(std::string_view name) {
  if (name == "Shortcut") return Shortcut.Text();
  return Control::ReadProperty(name);
}

bool MenuItem::IsReachable() const {
  return Enabled && Visible && (!parent_ || parent_->IsReachable());
}

void MenuItem::UserShortcut() {
  for (const MenuItem* menu = parent_; menu; menu = menu->parent_) {
    if (!menu->Enabled) return;
  }
  if (Visible && UserMayAct()) OnClick();
}

}  // namespace lumidex
