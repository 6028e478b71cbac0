#pragma once
// One item of a menu: a command, a submenu, or a separator (caption "-"). The order in which a form declares
// its items is their order on screen.

#include "controls/control.h"

namespace lumidex {

// The keys that choose an item from anywhere in its window.
struct Shortcut {
  int code = 0;  // the classic virtual one, as of KeyDown; 0 for none
  bool control = false;
  bool shift = false;

  constexpr Shortcut() = default;
  // A letter is pressed with Ctrl.
  constexpr Shortcut(char letter) : code(letter), control(letter != 0) {}
  // F1 to F12, by itself.
  static constexpr Shortcut FunctionKey(int number) {
    Shortcut shortcut;
    shortcut.code = 111 + number;
    return shortcut;
  }

  // "Ctrl+D", "F5", "Shift+F5"; empty for none.
  std::string Text() const;
  bool operator==(const Shortcut&) const = default;
};

class MenuItem final : public Control {
 public:
  // `parent` is null for the titles of the menu bar.
  MenuItem(Form& owner, std::string name, MenuItem* parent, std::string caption,
           lumidex::Shortcut shortcut = {})
      : Control(owner, std::move(name)),
        Caption(*this, "Caption", std::move(caption)),
        Shortcut(shortcut),
        parent_(parent) {}

  std::string_view Kind() const override { return "MenuItem"; }
  // Also Shortcut, as text.
  std::optional<std::string> ReadProperty(std::string_view name) override;

  Property<std::string> Caption;
  Property<bool> Checked{*this, "Checked", false};
  // Part of the design alone.
  lumidex::Shortcut Shortcut;
  Event<> OnClick;

  MenuItem* Parent() const { return parent_; }
  bool IsSeparator() const { return Caption.Get() == "-"; }
  // Enabled and visible, and so are all the menus that it stands in.
  bool IsReachable() const;

  // As code calls the handler.
  void Click() const { OnClick(); }
  void UserClick() {
    if (IsReachable() && UserMayAct()) OnClick();
  }
  // The item's keys were pressed: they reach it also while the menus that it stands in are hidden.
  void UserShortcut();

 private:
  MenuItem* parent_;
};

}  // namespace lumidex
