#pragma once
// Controls that show or take text: labels, text boxes, frames.

#include "controls/border_style.h"
#include "controls/pointed.h"

namespace lumidex {

class Label final : public PointedControl {
 public:
  Label(Form& owner, std::string name, std::string caption = {})
      : PointedControl(owner, std::move(name)), Caption(*this, "Caption", std::move(caption)) {}
  std::string_view Kind() const override { return "Label"; }

  Property<std::string> Caption;
  // Red in the low byte; -1 is the desktop's own colour.
  Property<std::int32_t> ForeColor{*this, "ForeColor", -1};
  Property<std::int32_t> BackColor{*this, "BackColor", -1};
  Property<BorderStyle> Border{*this, "BorderStyle", BorderStyle::None};
};

class TextBox final : public Control {
 public:
  TextBox(Form& owner, std::string name, std::string text = {})
      : Control(owner, std::move(name)),
        Text(*this, "Text", std::move(text), ruled<std::string, nullptr, &Fire>) {}
  std::string_view Kind() const override { return "TextBox"; }
  bool CanTakeFocus() const override { return true; }

  // A new text fires Change.
  Property<std::string> Text;
  Property<bool> Locked{*this, "Locked", false};
  Property<bool> MultiLine{*this, "MultiLine", false};
  // Most characters that may be typed; 0 is no limit.
  Property<int> MaxLength{*this, "MaxLength", 0};
  Event<> OnChange;

  void UserType(std::string text) {
    if (!Locked && UserMayAct()) Text = std::move(text);
  }

 private:
  static void Fire(Element& owner) { static_cast<TextBox&>(owner).OnChange(); }
};

class Frame final : public Control {
 public:
  Frame(Form& owner, std::string name, std::string caption = {})
      : Control(owner, std::move(name)), Caption(*this, "Caption", std::move(caption)) {}
  std::string_view Kind() const override { return "Frame"; }

  Property<std::string> Caption;
};

}  // namespace lumidex
