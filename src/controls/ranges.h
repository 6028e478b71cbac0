#pragma once
// Controls with a value between two ends: slider, up-down, scroll bar, progress bar.

#include <optional>

#include "controls/control.h"

namespace lumidex {

// A value outside Min and Max raises InvalidPropertyValue; a new value fires Change. When Min or Max leave
// the value outside, it goes to the nearer end.
class RangeControl : public Control {
 public:
  RangeControl(Form& owner, std::string name, int min, int max, int value);

  Property<int> Min, Max, Value;
  Property<int> SmallChange{*this, "SmallChange", 1}, LargeChange{*this, "LargeChange", 1};
  Event<> OnChange;
  // While a thumb is being dragged.
  Event<> OnScroll;

  // Brought into the range; fires Change on a new value.
  void UserSet(int value);
  // A thumb is dragged, which fires Scroll, and let go, which fires Change when the value is another than
  // before.
  void UserDrag(int value);
  void UserDrop();

 private:
  int Within(int value) const;
  static void RefuseOutside(Element& owner, const int& value);
  static void KeepInside(Element& owner);
  static void Fire(Element& owner) { static_cast<RangeControl&>(owner).OnChange(); }

  std::optional<int> beforeDrag_;
};

class Slider final : public RangeControl {
 public:
  Slider(Form& owner, std::string name, int min = 0, int max = 10, int value = 0)
      : RangeControl(owner, std::move(name), min, max, value) {}
  std::string_view Kind() const override { return "Slider"; }
  // Steps between two ticks.
  Property<int> TickFrequency{*this, "TickFrequency", 1};
  bool CanTakeFocus() const override { return true; }
};

class UpDown final : public RangeControl {
 public:
  UpDown(Form& owner, std::string name, int min = 0, int max = 10, int value = 0)
      : RangeControl(owner, std::move(name), min, max, value) {}
  std::string_view Kind() const override { return "UpDown"; }
};

// Min may lie above Max: the bar then runs backwards.
class ScrollBar : public RangeControl {
 public:
  ScrollBar(Form& owner, std::string name, int min = 0, int max = 32767, int value = 0)
      : RangeControl(owner, std::move(name), min, max, value) {}
  bool CanTakeFocus() const override { return true; }
  virtual bool IsUpright() const = 0;
};

class HScrollBar final : public ScrollBar {
 public:
  using ScrollBar::ScrollBar;
  std::string_view Kind() const override { return "HScrollBar"; }
  bool IsUpright() const override { return false; }
};

class VScrollBar final : public ScrollBar {
 public:
  using ScrollBar::ScrollBar;
  std::string_view Kind() const override { return "VScrollBar"; }
  bool IsUpright() const override { return true; }
};

class ProgressBar final : public RangeControl {
 public:
  ProgressBar(Form& owner, std::string name, int min = 0, int max = 100, int value = 0)
      : RangeControl(owner, std::move(name), min, max, value) {}
  std::string_view Kind() const override { return "ProgressBar"; }
};

}  // namespace lumidex
