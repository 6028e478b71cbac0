#pragma once
// A label that leads to an address when it is clicked. No code of the program touches it.

#include "controls/form.h"

namespace lumidex {

class HyperLink final : public PointedControl {
 public:
  // `target` is the address: a page's or, with "mailto:", a person's.
  HyperLink(Form& owner, std::string name, std::string caption, std::string target)
      : PointedControl(owner, std::move(name)),
        Caption(*this, "Caption", std::move(caption)),
        Target(*this, "Target", std::move(target)) {
    OnClick = [this] { Follow(); };
  }
  std::string_view Kind() const override { return "HyperLinkLabel"; }
  bool CanTakeFocus() const override { return true; }

  Property<std::string> Caption, Target;
  // Of the text while the mouse is on it; red in the low byte.
  Property<std::int32_t> HoverColor{*this, "HoverColor", 0x2020D0};

 private:
  // Where nothing belongs to addresses, nothing opens.
  void Follow() {
    constexpr int normal = 1;
    Owner().GetPlatform().shell.ShellExecuteA(Owner().hwnd(), "Open", Target, "", "", normal);
  }
};

}  // namespace lumidex
