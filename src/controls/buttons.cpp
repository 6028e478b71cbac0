#include "controls/buttons.h"

#include "base/run_time_error.h"

namespace lumidex {

void CommandButton::VisitProperties(const PropertyVisitor& visit) {
  Control::VisitProperties(visit);
  visit("Caption", Caption);
  visit("Picture", PictureKey);
  visit("Default", Default);
  visit("Cancel", Cancel);
}

void CheckBox::VisitProperties(const PropertyVisitor& visit) {
  Control::VisitProperties(visit);
  visit("Caption", Caption);
  visit("Value", Value);
  visit("BackColor", BackColor);
}

void CheckBox::RefuseOthers(Element&, const int& value) {
  if (value < 0 || value > 2) throw RunTimeError(ErrorNumber::InvalidPropertyValue);
}

OptionButton::OptionButton(Form& owner, std::string name, OptionGroup& group, std::string caption, bool value)
    : Control(owner, std::move(name)),
      Caption(*this, std::move(caption)),
      Value(*this, value, nullptr, &Fire),
      group_(group) {
  group.members.push_back(this);
}

void OptionButton::VisitProperties(const PropertyVisitor& visit) {
  Control::VisitProperties(visit);
  visit("Caption", Caption);
  visit("Value", Value);
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
