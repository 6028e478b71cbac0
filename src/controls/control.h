#pragma once
// The base of every control: it belongs to a form, which finds it by name.

#include <memory>
#include <vector>

#include "controls/element.h"

namespace lumidex {

class Form;

// "chkFileType(13)"
std::string IndexedName(std::string_view name, int index);

class Control : public Element {
 public:
  Control(Form& owner, std::string name);
  ~Control() override;

  Form& Owner() { return owner_; }
  void VisitProperties(const PropertyVisitor& visit) override;

  // Position in twips, inside the form or the container that the view knows.
  Property<float> Left{*this}, Top{*this}, Width{*this}, Height{*this};
  Property<bool> Enabled{*this, true, nullptr, nullptr, &Control::EnabledWritten};
  Property<bool> Visible{*this, true};
  Property<std::string> ToolTipText{*this};

  void Move(float left, float top, float width, float height);
  // Gives the control the keyboard. Raises InvalidCall when it, or its form, is hidden or disabled.
  void SetFocus();
  virtual bool CanTakeFocus() const { return false; }

  // The form begins and ends its life.
  virtual void WhenFormLoaded() {}
  virtual void WhenFormUnloaded() {}

  Event<> OnGotFocus, OnLostFocus;
  // Key codes are the classic virtual ones: 13 Enter, 27 Escape, 37 to 40 the arrows.
  Event<int> OnKeyDown, OnKeyPress;

 protected:
  // A user gesture reaches a control only when it is enabled; it first gets the keyboard if it can take it.
  // False when the gesture goes nowhere.
  bool UserMayAct();

  // Somebody has written Enabled, with a new value or the old one.
  virtual void WhenEnabledWritten() {}

 private:
  static void EnabledWritten(Element& element) { static_cast<Control&>(element).WhenEnabledWritten(); }

  Form& owner_;
};

// A group of controls of one kind under one name, told apart by an index that need not begin at 0.
template <class T>
class ControlArray {
 public:
  template <class... Args>
  ControlArray(Form& owner, std::string_view name, int first, int last, Args&&... args) : first_(first) {
    for (int index = first; index <= last; ++index) {
      members_.push_back(std::make_unique<T>(owner, IndexedName(name, index), args...));
    }
  }
  // Raises Subscript outside the range.
  T& operator()(int index) {
    CheckIndex(index);
    return *members_[static_cast<std::size_t>(index - first_)];
  }
  int First() const { return first_; }
  int Last() const { return first_ + static_cast<int>(members_.size()) - 1; }
  auto begin() { return members_.begin(); }
  auto end() { return members_.end(); }

 private:
  void CheckIndex(int index) const;
  int first_;
  std::vector<std::unique_ptr<T>> members_;
};

[[noreturn]] void RaiseSubscript();

template <class T>
void ControlArray<T>::CheckIndex(int index) const {
  if (index < First() || index > Last()) RaiseSubscript();
}

}  // namespace lumidex
