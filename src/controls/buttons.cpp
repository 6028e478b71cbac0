#include "controls/buttons.h"

#include "base/run_time_error.h"

namespace lumidex {

void CheckBox::RefuseOthers(Element&, const int& value) {
  if (value < 0 || value > 2) throw RunTimeError(ErrorNumber::InvalidPropertyValue);
}

OptionButton::OptionButton(Form& owner, std::string name, OptionGroup& group, std::string caption, bool value)
    : Control(owner, std::move(name)),
      Caption(*this, "Caption", std::move(caption)),
      Value(*this, "Value", value, ruled<bool, nullptr, &Fire>),
      group_(group) {
  group.members.push_back(this);
}

void OptionButton::Fire(Element& owner) {
  auto& pressed = static_cast<OptionButton&>(owner);
  if (!pressed.Value) return;
  for (OptionButton* other : pressed.group_.members) {
    if (other != &pressed) other->Value.SetQuietly(false);
  }
  pressed.OnClick();
}

}  // namespace lumidex
