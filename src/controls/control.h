#pragma once
// The base of every control: it belongs to a form, which finds it by name, and may stand in another control.

#include "controls/element.h"
#include "controls/scale.h"

namespace lumidex {

class Form;

// "chkFileType(13)"
std::string IndexedName(std::string_view name, int index);
[[noreturn]] void RaiseSubscript();

class Control : public Element {
 public:
  Control(Form& owner, std::string name);
  ~Control() override;

  Form& Owner() const { return owner_; }
  // Also Container, which is the form's name for what stands in the form itself.
  std::optional<std::string> ReadProperty(std::string_view name) override;

  // What the control stands in: null for the form itself, and the page of a container that has several.
  Property<Control*> Container{*this, "Container"};
  Property<int> ContainerPage{*this, "ContainerPage"};
  // Position inside the container or the form, in its units.
  Property<float> Left{*this, "Left"}, Top{*this, "Top"}, Width{*this, "Width"}, Height{*this, "Height"};
  Property<bool> Enabled{*this, "Enabled", true, ruled<bool, nullptr, nullptr, &Control::EnabledWritten>};
  Property<bool> Visible{*this, "Visible", true};
  Property<std::string> ToolTipText{*this, "ToolTipText"};
  // Each call of BringToFront raises it, and the control above its neighbours.
  Property<int> Order{*this, "Order"};
  void BringToFront() { Order = Order + 1; }

  void Move(float left, float top, float width, float height);
  // How many twips one unit of its position and size is.
  float TwipsPerOuterUnit() const;
  // The unit for what stands inside.
  virtual ScaleMode InnerScale() const { return ScaleMode::Twips; }

  // Gives the control the keyboard. Raises InvalidCall when it, or its form, is hidden or disabled.
  void SetFocus();
  virtual bool CanTakeFocus() const { return false; }

  // The form begins and ends its life.
  virtual void WhenFormLoaded() {}
  virtual void WhenFormUnloaded() {}

  Event<> OnGotFocus, OnLostFocus;
  // Key codes are the classic virtual ones: 13 Enter, 27 Escape, 37 to 40 the arrows.
  Event<int> OnKeyDown, OnKeyPress;
  // A key goes down on the control that has the keyboard.
  void UserKey(int keyCode);

  // Takes the control out of its form, so that nobody finds it any more: the first step of its end.
  void Leave();

 protected:
  // A user gesture reaches a control only when it is enabled; it first gets the keyboard if it can take it.
  // False when the gesture goes nowhere; the control may be gone then.
  bool UserMayAct();

  // Somebody has written Enabled, with a new value or the old one.
  virtual void WhenEnabledWritten() {}

 private:
  static void EnabledWritten(Element& element) { static_cast<Control&>(element).WhenEnabledWritten(); }

  Form& owner_;
  bool left_ = false;
};

}  // namespace lumidex
