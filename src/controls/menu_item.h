#pragma once
// One item of a menu: a command, a submenu, or a separator (caption "-"). The order in which a form declares
// its items is their order on screen.

#include "controls/control.h"

namespace lumidex {

class MenuItem final : public Control {
 public:
  // `parent` is null for the titles of the menu bar. `shortcut` is pressed with Ctrl; 0 for none.
  MenuItem(Form& owner, std::string name, MenuItem* parent, std::string caption, char shortcut = 0)
      : Control(owner, std::move(name)),
        Caption(*this, "Caption", std::move(caption)),
        parent_(parent),
        shortcut_(shortcut) {}

  std::string_view Kind() const override { return "MenuItem"; }
  // Also Shortcut, as "Ctrl+D".
  std::optional<std::string> ReadProperty(std::string_view name) override;

  Property<std::string> Caption;
  Property<bool> Checked{*this, "Checked", false};
  Event<> OnClick;

  MenuItem* Parent() const { return parent_; }
  char Shortcut() const { return shortcut_; }
  bool IsSeparator() const { return Caption.Get() == "-"; }
  // Enabled and visible, and so are all the menus that it stands in.
  bool IsReachable() const;

  // As code calls the handler.
  void Click() const { OnClick(); }
  void UserClick() {
    if (IsReachable() && UserMayAct()) OnClick();
  }

 private:
  MenuItem* parent_;
  char shortcut_;
};

}  // namespace lumidex
