#pragma once
// Controls that are pressed: command buttons, check boxes, option buttons.

#include "controls/control.h"

namespace lumidex {

class CommandButton final : public Control {
 public:
  CommandButton(Form& owner, std::string name, std::string caption = {})
      : Control(owner, std::move(name)), Caption(*this, "Caption", std::move(caption)) {}

  std::string_view Kind() const override { return "CommandButton"; }
  bool CanTakeFocus() const override { return true; }

  Property<std::string> Caption;
  // Name of the drawn picture that stands on the button; empty for none.
  Property<std::string> PictureKey{*this, "Picture"};
  // Pressed by Enter and by Escape from anywhere in the form.
  Property<bool> Default{*this, "Default", false};
  Property<bool> Cancel{*this, "Cancel", false};
  Event<> OnClick;

  void UserClick() {
    if (UserMayAct()) OnClick();
  }
};

class CheckBox final : public Control {
 public:
  CheckBox(Form& owner, std::string name, std::string caption = {}, int value = 0)
      : Control(owner, std::move(name)),
        Caption(*this, "Caption", std::move(caption)),
        Value(*this, "Value", value, ruled<int, &RefuseOthers, &Fire>) {}

  std::string_view Kind() const override { return "CheckBox"; }
  bool CanTakeFocus() const override { return true; }

  Property<std::string> Caption;
  // 0, 1, or 2 for grey; anything else raises InvalidPropertyValue. A new value fires Click.
  Property<int> Value;
  // Red in the low byte; -1 is the desktop's own colour.
  Property<std::int32_t> BackColor{*this, "BackColor", -1};
  Event<> OnClick;

  void UserClick() {
    if (UserMayAct()) Value = Value == 1 ? 0 : 1;
  }

 private:
  static void RefuseOthers(Element& owner, const int& value);
  static void Fire(Element& owner) { static_cast<CheckBox&>(owner).OnClick(); }
};

class OptionButton;

// The option buttons that exclude one another.
struct OptionGroup {
  std::vector<OptionButton*> members;
};

class OptionButton final : public Control {
 public:
  OptionButton(Form& owner, std::string name, OptionGroup& group, std::string caption = {},
               bool value = false);

  std::string_view Kind() const override { return "OptionButton"; }
  bool CanTakeFocus() const override { return true; }

  Property<std::string> Caption;
  // Set to True it clears the others of its group and fires Click.
  Property<bool> Value;
  Event<> OnClick;

  void UserClick() {
    if (UserMayAct()) Value = true;
  }

 private:
  static void Fire(Element& owner);
  OptionGroup& group_;
};

}  // namespace lumidex
